#include "export/ExportPreview.h"

#include "export/ExportRows.h"

#include <array>
#include <charconv>

namespace {

std::string Shown(const OdbcValue& value)
{
    if (const auto* const text = std::get_if<std::string>(&value)) return *text;
    if (const auto* const whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    const auto* const real = std::get_if<double>(&value);
    if (real == nullptr) return {};
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), *real).ptr};
}

std::vector<std::string> RunRow(const ExportPlan& plan, const ExportStamp& stamp,
                                const CacheSnapshot& snapshot)
{
    std::vector<std::string> row{"?", DatabaseText(stamp.server), Shown(MomentValue(stamp.scannedAt)),
                                 Shown(MomentValue(stamp.exportedAt)), DatabaseText(stamp.program)};
    for (const auto table : kExportTables)
        if (table != ExportTable::Runs)
            row.push_back(plan.tables[table].isWanted ? std::to_string(RowCount(table, snapshot)) : "");
    return row;
}

}  // namespace

ExportPreview PreviewOf(ExportTable table, const ExportPlan& plan, const ExportStamp& stamp,
                        const CacheSnapshot& snapshot, std::size_t most)
{
    ExportPreview preview;
    const auto& name = plan.tables[table].name;
    for (const auto& column : ColumnsOf(table)) preview.columns.emplace_back(column.name);
    preview.sql =
        CreateTableSql(table, name, StandardQuote) + ";\n" + InsertSql(table, name, 1, StandardQuote) + ';';
    if (table == ExportTable::Runs) preview.rows.push_back(RunRow(plan, stamp, snapshot));
    ForEachExportRow(table, snapshot, [&](const ExportRow& row) {
        if (preview.rows.size() == most) return false;
        auto& shown = preview.rows.emplace_back();
        for (const auto& value : row) shown.push_back(Shown(value));
        shown.front() = "?";
        return true;
    });
    return preview;
}
