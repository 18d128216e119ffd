#include "export/ExportPlan.h"

#include "base/Text.h"
#include "base/Translate.h"

#include <algorithm>

#include <sqlext.h>

namespace {

template <std::size_t Left, std::size_t Right>
constexpr std::array<ExportColumn, Left + Right> Join(const std::array<ExportColumn, Left>& left,
                                                      const std::array<ExportColumn, Right>& right)
{
    std::array<ExportColumn, Left + Right> all;
    std::copy(left.begin(), left.end(), all.begin());
    std::copy(right.begin(), right.end(), all.begin() + Left);
    return all;
}

constexpr ExportColumn kRun{"run", ColumnKind::Whole};

constexpr std::array kFigures{
    ExportColumn{"uncompressed_size", ColumnKind::Real}, ExportColumn{"compressed_size", ColumnKind::Real},
    ExportColumn{"served_compressed", ColumnKind::Real}, ExportColumn{"uncomp_equivalent", ColumnKind::Real},
    ExportColumn{"total_hits", ColumnKind::Whole},       ExportColumn{"cache_hits", ColumnKind::Whole},
    ExportColumn{"overwrites", ColumnKind::Whole},       ExportColumn{"total_life_100ns", ColumnKind::Real},
    ExportColumn{"cpu_time_100ns", ColumnKind::Real}};

constexpr auto kCountedFigures = Join(std::array{ExportColumn{"cached_urls", ColumnKind::Whole}}, kFigures);

constexpr std::array kRuns{
    ExportColumn{"run", ColumnKind::Key},           ExportColumn{"server", ColumnKind::Text},
    ExportColumn{"scanned_at", ColumnKind::Moment}, ExportColumn{"exported_at", ColumnKind::Moment},
    ExportColumn{"program", ColumnKind::Text},      ExportColumn{"site_rows", ColumnKind::Whole},
    ExportColumn{"entry_rows", ColumnKind::Whole},  ExportColumn{"type_rows", ColumnKind::Whole},
    ExportColumn{"total_rows", ColumnKind::Whole},  ExportColumn{"counter_rows", ColumnKind::Whole}};
constexpr std::size_t kFirstRowCount = 5;  // in kRuns

constexpr auto kSites =
    Join(std::array{kRun, ExportColumn{"site", ColumnKind::Whole}, ExportColumn{"name", ColumnKind::Text}},
         kCountedFigures);
constexpr auto kEntries = Join(
    std::array{kRun, ExportColumn{"site", ColumnKind::Whole}, ExportColumn{"path", ColumnKind::Text},
               ExportColumn{"query_hash", ColumnKind::Text}, ExportColumn{"type", ColumnKind::Text},
               ExportColumn{"physical_path", ColumnKind::Text}, ExportColumn{"level", ColumnKind::Whole},
               ExportColumn{"cache_id", ColumnKind::Whole}, ExportColumn{"cached", ColumnKind::Moment},
               ExportColumn{"expires", ColumnKind::Moment}, ExportColumn{"modified", ColumnKind::Moment}},
    kFigures);
constexpr auto kTypes = Join(std::array{kRun, ExportColumn{"type", ColumnKind::Text}}, kCountedFigures);
constexpr auto kTotals = Join(std::array{kRun}, kCountedFigures);
constexpr std::array kCounters{kRun, ExportColumn{"name", ColumnKind::Text},
                               ExportColumn{"value", ColumnKind::Real}};

std::string_view SqlTypeOf(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Key: return "BIGINT NOT NULL PRIMARY KEY";
    case ColumnKind::Whole: return "BIGINT";
    case ColumnKind::Real: return "DOUBLE PRECISION";
    case ColumnKind::Text:
    case ColumnKind::Moment: break;
    }
    return "TEXT";
}

bool IsControl(char c)
{
    return (c >= 0 && c < ' ') || c == '\x7F';
}

}  // namespace

std::string CaptionOf(ExportTable table)
{
    switch (table) {
    case ExportTable::Runs: return Translate("DatabaseExport", "Runs");
    case ExportTable::Sites: return Translate("DatabaseExport", "Sites");
    case ExportTable::Entries: return Translate("DatabaseExport", "Cached URLs");
    case ExportTable::Types: return Translate("DatabaseExport", "File types");
    case ExportTable::Totals: return Translate("DatabaseExport", "Totals");
    case ExportTable::Counters: break;
    }
    return Translate("DatabaseExport", "Counters");
}

std::span<const ExportColumn> ColumnsOf(ExportTable table)
{
    switch (table) {
    case ExportTable::Runs: return kRuns;
    case ExportTable::Sites: return kSites;
    case ExportTable::Entries: return kEntries;
    case ExportTable::Types: return kTypes;
    case ExportTable::Totals: return kTotals;
    case ExportTable::Counters: break;
    }
    return kCounters;
}

// ---- the plan

ExportPlan::ExportPlan()
{
    tables[ExportTable::Runs].name = "quillet_runs";
    tables[ExportTable::Sites].name = "quillet_sites";
    tables[ExportTable::Entries].name = "quillet_entries";
    tables[ExportTable::Types].name = "quillet_types";
    tables[ExportTable::Totals].name = "quillet_totals";
    tables[ExportTable::Counters].name = "quillet_counters";
}

std::vector<ExportTable> ExportPlan::Wanted() const
{
    std::vector<ExportTable> wanted;
    for (const auto table : kExportTables)
        if (table == ExportTable::Runs || tables[table].isWanted) wanted.push_back(table);
    return wanted;
}

std::string ExportPlan::Fault(ExportTable table) const
{
    const auto& name = tables[table].name;
    if (name.empty()) return Translate("DatabaseExport", "A table needs a name.");
    if (name.size() > kMostName)
        return Translate("DatabaseExport",
                         "The name of a table has at most 63 bytes, so that every database takes it.");
    if (!IsValidUtf8(name) || std::any_of(name.begin(), name.end(), IsControl))
        return Translate("DatabaseExport", "The name of a table has no control characters.");
    for (const auto other : Wanted())
        if (other != table && LowerCase(tables[other].name) == LowerCase(name))
            return Translate("DatabaseExport", "Each table needs a name of its own, whatever its capitals.");
    return {};
}

// ---- SQL

std::string StandardQuote(std::string_view identifier)
{
    std::string quoted = "\"";
    for (const char c : identifier) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::string CreateTableSql(ExportTable table, std::string_view name, const Quoter& quote)
{
    auto sql = "CREATE TABLE " + quote(name) + " (";
    for (const auto& column : ColumnsOf(table)) {
        if (!sql.ends_with('(')) sql += ", ";
        sql += quote(column.name) + ' ';
        sql += SqlTypeOf(column.kind);
    }
    return sql + ')';
}

std::string InsertSql(ExportTable table, std::string_view name, std::size_t rows, const Quoter& quote)
{
    auto sql = "INSERT INTO " + quote(name) + " (";
    std::string row = "(";
    for (const auto& column : ColumnsOf(table)) {
        if (!sql.ends_with('(')) sql += ", ";
        sql += quote(column.name);
        row += row.size() == 1 ? "?" : ", ?";
    }
    row += ')';
    sql += ") VALUES " + row;
    sql.reserve(sql.size() + rows * (row.size() + 2));
    for (std::size_t i = 1; i < rows; ++i) sql += ", " + row;
    return sql;
}

std::string LockRunsSql(std::string_view runsName, const Quoter& quote)
{
    const auto run = quote(kRun.name);
    return "UPDATE " + quote(runsName) + " SET " + run + " = " + run + " WHERE 1 = 0";
}

std::string NextRunSql(std::string_view runsName, const Quoter& quote)
{
    return "SELECT COALESCE(MAX(" + quote(kRun.name) + "), 0) + 1 FROM " + quote(runsName);
}

std::string RunRowsSql(std::string_view runsName, const Quoter& quote)
{
    auto sql = "UPDATE " + quote(runsName) + " SET ";
    for (std::size_t i = kFirstRowCount; i < kRuns.size(); ++i) {
        if (i > kFirstRowCount) sql += ", ";
        sql += quote(kRuns[i].name) + " = ?";
    }
    return sql + " WHERE " + quote(kRun.name) + " = ?";
}

bool CanHold(int sqlType, ColumnKind kind)
{
    switch (sqlType) {
    case SQL_BIGINT:
    case SQL_INTEGER: return kind == ColumnKind::Key || kind == ColumnKind::Whole;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE: return kind == ColumnKind::Real;
    case SQL_NUMERIC:
    case SQL_DECIMAL: return kind != ColumnKind::Text && kind != ColumnKind::Moment;
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR: return kind == ColumnKind::Text || kind == ColumnKind::Moment;
    case SQL_SMALLINT:
    case SQL_TINYINT:
    case SQL_BIT:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIME:
    case SQL_TYPE_TIMESTAMP:
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY: return false;
    default: return true;
    }
}
