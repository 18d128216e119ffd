#include "cache/InfoRows.h"

#include "base/Translate.h"

namespace {

constexpr const char* kCountTip = TRANSLATE_NOOP("InfoRows", "Count of files, found in Zentrel Cache");

// A member of a record, or what one of its functions answers.
template <auto Member>
FormatInput Value(const FileInfo& info)
{
    if constexpr (std::is_member_function_pointer_v<decltype(Member)>)
        return (info.*Member)();
    else
        return info.*Member;
}

constexpr InfoRow kCacheTotals[] = {
    {TRANSLATE_NOOP("InfoRows", "Total Cached Files:"), Value<&FileInfo::Count>, FormatKind::Plain,
     kCountTip},
    {TRANSLATE_NOOP("InfoRows", "Compressed Size:"), Value<&FileInfo::CompressedSize>, FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "Uncompressed Size:"), Value<&FileInfo::UncompressedSize>, FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "Served Compressed:"), Value<&FileInfo::ServedCompressed>, FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "Original Equivalent:"), Value<&FileInfo::UncompEquivalent>,
     FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "Bandwith Savings:"), Value<&FileInfo::BandwidthSavings>, FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "Boost Ratio:"), Value<&FileInfo::Boost>, FormatKind::Percent},
    {TRANSLATE_NOOP("InfoRows", "Total Hits:"), Value<&FileInfo::TotalHits>},
    {TRANSLATE_NOOP("InfoRows", "Cache Hits:"), Value<&FileInfo::CacheHits>},
    {TRANSLATE_NOOP("InfoRows", "% Cache Hits:"), Value<&FileInfo::CacheHitsRatio>, FormatKind::Percent},
};

constexpr InfoRow kFileInfo[] = {
    {TRANSLATE_NOOP("InfoRows", "Compession Level:"), Value<&FileInfo::AvgCompLevel>},
    {TRANSLATE_NOOP("InfoRows", "Compressed Size:"), Value<&FileInfo::CompressedSize>, FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "Uncompressed Size:"), Value<&FileInfo::UncompressedSize>, FormatKind::Large},
    {TRANSLATE_NOOP("InfoRows", "File Remains:"), Value<&FileInfo::Ratio>, FormatKind::Percent},
    {TRANSLATE_NOOP("InfoRows", "Boost Ratio:"), Value<&FileInfo::Boost>, FormatKind::Percent},
    {TRANSLATE_NOOP("InfoRows", "Total Hits:"), Value<&FileInfo::TotalHits>},
    {TRANSLATE_NOOP("InfoRows", "Cache Hits:"), Value<&FileInfo::CacheHits>},
    {TRANSLATE_NOOP("InfoRows", "% Cache Hits:"), Value<&FileInfo::CacheHitsRatio>, FormatKind::Percent},
    {TRANSLATE_NOOP("InfoRows", "Comp CPU Time:"), Value<&FileInfo::CompCpuTime>, FormatKind::TimeSpan},
    {TRANSLATE_NOOP("InfoRows", "Avg Cache Lifetime:"), Value<&FileInfo::AvgCacheLife>, FormatKind::TimeSpan},
    {TRANSLATE_NOOP("InfoRows", "Cache Created:"), Value<&FileInfo::CacheDate>},
    {TRANSLATE_NOOP("InfoRows", "Cache Expires:"), Value<&FileInfo::Expires>},
};

}  // namespace

std::span<const InfoRow> CacheTotalsRows()
{
    return kCacheTotals;
}

std::span<const InfoRow> FileInfoRows()
{
    return kFileInfo;
}

std::string CaptionOf(const InfoRow& row)
{
    return Translate("InfoRows", row.caption);
}

std::string ToolTipOf(const InfoRow& row)
{
    return row.toolTip == nullptr ? std::string() : Translate("InfoRows", row.toolTip);
}

std::vector<std::string> InfoTexts(std::span<const InfoRow> rows, const FileInfo& info,
                                   const FormatLocale& locale)
{
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const auto& row : rows) texts.push_back(FormatValue(row.value(info), row.kind, locale));
    return texts;
}
