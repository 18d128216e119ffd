#include "cache/InfoRows.h"

namespace {

constexpr std::string_view kCountTip = "Count of files, found in Zentrel Cache";

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
    {"Total Cached Files:", Value<&FileInfo::Count>, FormatKind::Plain, kCountTip},
    {"Compressed Size:", Value<&FileInfo::CompressedSize>, FormatKind::Large},
    {"Uncompressed Size:", Value<&FileInfo::UncompressedSize>, FormatKind::Large},
    {"Served Compressed:", Value<&FileInfo::ServedCompressed>, FormatKind::Large},
    {"Original Equivalent:", Value<&FileInfo::UncompEquivalent>, FormatKind::Large},
    {"Bandwith Savings:", Value<&FileInfo::BandwidthSavings>, FormatKind::Large},
    {"Boost Ratio:", Value<&FileInfo::Boost>, FormatKind::Percent},
    {"Total Hits:", Value<&FileInfo::TotalHits>},
    {"Cache Hits:", Value<&FileInfo::CacheHits>},
    {"% Cache Hits:", Value<&FileInfo::CacheHitsRatio>, FormatKind::Percent},
};

constexpr InfoRow kFileInfo[] = {
    {"Compession Level:", Value<&FileInfo::AvgCompLevel>},
    {"Compressed Size:", Value<&FileInfo::CompressedSize>, FormatKind::Large},
    {"Uncompressed Size:", Value<&FileInfo::UncompressedSize>, FormatKind::Large},
    {"File Remains:", Value<&FileInfo::Ratio>, FormatKind::Percent},
    {"Boost Ratio:", Value<&FileInfo::Boost>, FormatKind::Percent},
    {"Total Hits:", Value<&FileInfo::TotalHits>},
    {"Cache Hits:", Value<&FileInfo::CacheHits>},
    {"% Cache Hits:", Value<&FileInfo::CacheHitsRatio>, FormatKind::Percent},
    {"Comp CPU Time:", Value<&FileInfo::CompCpuTime>, FormatKind::TimeSpan},
    {"Avg Cache Lifetime:", Value<&FileInfo::AvgCacheLife>, FormatKind::TimeSpan},
    {"Cache Created:", Value<&FileInfo::CacheDate>},
    {"Cache Expires:", Value<&FileInfo::Expires>},
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

std::vector<std::string> InfoTexts(std::span<const InfoRow> rows, const FileInfo& info,
                                   const FormatLocale& locale)
{
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const auto& row : rows) texts.push_back(FormatValue(row.value(info), row.kind, locale));
    return texts;
}
