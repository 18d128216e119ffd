#include "export/ReportTables.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "export/ExportRows.h"

#include <span>
#include <unordered_map>

namespace {

enum class Figure {
    Count,
    Uncompressed,
    Compressed,
    Ratio,
    Saved,
    Sent,
    Plain,
    Hits,
    CacheHits,
    Replaced,
    Cpu
};
using Figures = std::span<const Figure>;

constexpr Figure kAllFigures[]{Figure::Count,     Figure::Uncompressed, Figure::Compressed, Figure::Ratio,
                               Figure::Saved,     Figure::Sent,         Figure::Plain,      Figure::Hits,
                               Figure::CacheHits, Figure::Replaced,     Figure::Cpu};
constexpr Figure kPartFigures[]{Figure::Count, Figure::Uncompressed, Figure::Compressed,
                                Figure::Ratio, Figure::Saved,        Figure::Hits};
constexpr Figure kLevelFigures[]{Figure::Count, Figure::Uncompressed, Figure::Compressed, Figure::Ratio,
                                 Figure::Cpu};
constexpr Figure kSaverFigures[]{Figure::Saved, Figure::Sent, Figure::Ratio, Figure::Hits};
constexpr Figure kSizeFigures[]{Figure::Uncompressed, Figure::Compressed, Figure::Ratio};
constexpr Figure kSizeAndHitFigures[]{Figure::Uncompressed, Figure::Compressed, Figure::Ratio, Figure::Hits};

ReportColumn ColumnOf(Figure figure)
{
    switch (figure) {
    case Figure::Count: return {"count", Translate("CacheReport", "Cached URLs")};
    case Figure::Uncompressed:
        return {"uncompressedSize", Translate("CacheReport", "Uncompressed"), FormatKind::Large};
    case Figure::Compressed:
        return {"compressedSize", Translate("CacheReport", "Compressed"), FormatKind::Large};
    case Figure::Ratio: return {"ratio", Translate("CacheReport", "Ratio"), FormatKind::Percent};
    case Figure::Saved:
        return {"bandwidthSavings", Translate("CacheReport", "Bandwidth saved"), FormatKind::Large};
    case Figure::Sent:
        return {"servedCompressed", Translate("CacheReport", "Sent compressed"), FormatKind::Large};
    case Figure::Plain:
        return {"uncompEquivalent", Translate("CacheReport", "Would be sent uncompressed"),
                FormatKind::Large};
    case Figure::Hits: return {"totalHits", Translate("CacheReport", "Hits")};
    case Figure::CacheHits: return {"cacheHits", Translate("CacheReport", "Hits answered from the cache")};
    case Figure::Replaced: return {"overwrites", Translate("CacheReport", "Replaced versions")};
    case Figure::Cpu: return {"cpuTime", Translate("CacheReport", "CPU time"), FormatKind::TimeSpan};
    }
    return {};
}

FormatInput ValueOf(Figure figure, const CacheFigures& figures)
{
    switch (figure) {
    case Figure::Count: return figures.count;
    case Figure::Uncompressed: return figures.uncompressedSize;
    case Figure::Compressed: return figures.compressedSize;
    case Figure::Ratio: return figures.Ratio();
    case Figure::Saved: return figures.BandwidthSavings();
    case Figure::Sent: return figures.servedCompressed;
    case Figure::Plain: return figures.uncompEquivalent;
    case Figure::Hits: return figures.totalHits;
    case Figure::CacheHits: return figures.cacheHits;
    case Figure::Replaced: return figures.overwrites;
    case Figure::Cpu: return figures.cpuTime;
    }
    return {};
}

void AddColumns(ReportTable& table, Figures which)
{
    for (const auto figure : which) table.columns.push_back(ColumnOf(figure));
}

void AddCells(std::vector<FormatInput>& row, Figures which, const CacheFigures& figures)
{
    for (const auto figure : which) row.push_back(ValueOf(figure, figures));
}

std::vector<FormatInput> NamedRow(std::string name, Figures which, const CacheFigures& figures)
{
    std::vector<FormatInput> row{std::move(name)};
    AddCells(row, which, figures);
    return row;
}

ReportTable PartsTable(const ReportParts& parts, std::string_view key, std::string title, ReportColumn name)
{
    ReportTable table{std::string(key), std::move(title), {}, {std::move(name)}, {}, {}, {}};
    AddColumns(table, kPartFigures);
    for (const auto& part : parts.named)
        table.rows.push_back(NamedRow(part.name, kPartFigures, part.figures));
    if (parts.others > 0) table.others = NamedRow(OthersName(parts.others), kPartFigures, parts.otherFigures);
    return table;
}

using SiteNames = std::unordered_map<std::int32_t, std::string>;

// What a list of entries is about.
struct ListKind {
    const char* key;
    const char* title;
    const char* what;  // which ones belong there
    Figures figures;
    bool hasExpiry = false;
};

ReportTable ListTable(const ListKind& kind, const ReportList& list, const SiteNames& sites)
{
    ReportTable table{kind.key, Translate("CacheReport", kind.title), {}, {}, {}, {}, list.all};
    table.note =
        Translate("CacheReport", kind.what) + ' ' +
        (list.all.count == 0 ? Translate("CacheReport", "There are none.")
                             : FillIn(Translate("CacheReport", "Shown: %1 of %2."),
                                      {std::to_string(list.top.size()), std::to_string(list.all.count)}));
    table.columns = {{"path", Translate("CacheReport", "URL"), FormatKind::Plain, true, false, {}, true},
                     {"queryHash", Translate("CacheReport", "Query"), FormatKind::Plain, true, true},
                     {"site", Translate("CacheReport", "Site"), FormatKind::Plain, true}};
    if (kind.hasExpiry) table.columns.push_back({"expires", Translate("CacheReport", "Expired")});
    AddColumns(table, kind.figures);
    for (const auto& entry : list.top) {
        const auto site = sites.find(entry.site);
        std::vector<FormatInput> row{entry.path, entry.queryHash,
                                     site != sites.end() ? site->second : std::to_string(entry.site)};
        if (kind.hasExpiry) row.emplace_back(entry.expires);
        AddCells(row, kind.figures, entry.figures);
        table.rows.push_back(std::move(row));
    }
    return table;
}

void AddLists(std::vector<ReportTable>& tables, const CacheReport& report)
{
    SiteNames sites;
    for (const auto& site : report.sites.named) sites.emplace(site.number, site.name);
    const ListKind savers{"savers", TRANSLATE_NOOP("CacheReport", "Largest savers"),
                          TRANSLATE_NOOP("CacheReport", "Cached URLs that save bandwidth, the most first."),
                          kSaverFigures};
    const ListKind neverHit{
        "neverHit", TRANSLATE_NOOP("CacheReport", "Never hit"),
        TRANSLATE_NOOP("CacheReport", "Cached URLs that nobody asked for again, the largest first."),
        kSizeFigures};
    const ListKind poorRatio{
        "poorRatio", TRANSLATE_NOOP("CacheReport", "Poor ratios"),
        TRANSLATE_NOOP("CacheReport",
                       "Cached URLs compressed to more than 95% of their size, the worst first."),
        kSizeAndHitFigures};
    const ListKind expired{
        "expired", TRANSLATE_NOOP("CacheReport", "Expired"),
        TRANSLATE_NOOP("CacheReport",
                       "Cached URLs that had expired when the cache was scanned, the oldest first."),
        kSizeFigures, true};
    tables.push_back(ListTable(savers, report.savers, sites));
    tables.push_back(ListTable(neverHit, report.neverHit, sites));
    tables.push_back(ListTable(poorRatio, report.poorRatio, sites));
    tables.push_back(ListTable(expired, report.expired, sites));
}

ReportTable LevelsTable(const CacheReport& report)
{
    ReportTable table{"levels", Translate("CacheReport", "Compression levels"),
                      {},       {{"level", Translate("CacheReport", "Level")}},
                      {},       {},
                      {}};
    AddColumns(table, kLevelFigures);
    for (std::size_t level = 0; level < CacheReport::kLevels; ++level)
        table.rows.push_back(NamedRow(std::to_string(level), kLevelFigures, report.levels[level]));
    table.rows.push_back(NamedRow(Translate("CacheReport", "Other"), kLevelFigures, report.levels.back()));
    return table;
}

}  // namespace

ReportTable FiguresTable(const CacheFigures& figures)
{
    ReportTable table{"totals", Translate("CacheReport", "Totals"), {}, {}, {{}}, {}, {}, true};
    AddColumns(table, kAllFigures);
    AddCells(table.rows.front(), kAllFigures, figures);
    return table;
}

std::vector<ReportTable> ReportTables(const CacheReport& report)
{
    std::vector<ReportTable> tables{FiguresTable(report.totals)};
    tables.push_back(PartsTable(report.sites, "sites", Translate("CacheReport", "Sites"),
                                {"site", Translate("CacheReport", "Site"), FormatKind::Plain, true}));
    tables.push_back(PartsTable(
        report.types, ReportKey::Types, Translate("CacheReport", "File types"),
        {"type", Translate("CacheReport", "File type"), FormatKind::Plain, true, false, TypeName({})}));
    AddLists(tables, report);
    tables.push_back(LevelsTable(report));
    return tables;
}

std::string CellText(const FormatInput& cell, const ReportColumn& column, const FormatLocale& locale)
{
    if (const auto* const text = std::get_if<std::string>(&cell)) return text->empty() ? column.empty : *text;
    return FormatValue(cell, column.kind, locale);
}

std::string TypeName(const std::string& type)
{
    return type.empty() ? Translate("CacheReport", "(none)") : type;
}

std::string OthersName(std::int64_t others)
{
    return FillIn(Translate("CacheReport", "Others (%1)"), {std::to_string(others)});
}

std::optional<std::string> IsoText(DateTime moment)
{
    const auto value = MomentValue(moment);
    const auto* const text = std::get_if<std::string>(&value);
    if (text == nullptr) return {};
    return *text;
}
