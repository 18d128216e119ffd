#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What an export writes, into which tables, and the SQL for it. Only types and statements that PostgreSQL,
// SQLite and most others share; each value is a parameter, each name is quoted.

enum class ExportTable { Runs, Sites, Entries, Types, Totals, Counters };
inline constexpr std::array kExportTables{ExportTable::Runs,  ExportTable::Sites,  ExportTable::Entries,
                                          ExportTable::Types, ExportTable::Totals, ExportTable::Counters};

std::string CaptionOf(ExportTable table);  // for the user, as in "File types"

enum class ColumnKind {
    Key,     // BIGINT, the table's primary key
    Whole,   // BIGINT
    Real,    // DOUBLE PRECISION; not a number is NULL
    Text,    // TEXT
    Moment,  // TEXT "2024-01-31 23:59:59", which sorts by time; no time zone, NULL = none
};

struct ExportColumn {
    std::string_view name;
    ColumnKind kind = ColumnKind::Text;
};

// Sizes are bytes, times 100 nanoseconds. The first column of every table is "run", the number of the export
// that wrote the row.
std::span<const ExportColumn> ColumnsOf(ExportTable table);

// One value for each table.
template <class Value>
class PerTable {
public:
    Value& operator[](ExportTable table) { return m_values[static_cast<std::size_t>(table)]; }
    const Value& operator[](ExportTable table) const { return m_values[static_cast<std::size_t>(table)]; }

private:
    std::array<Value, kExportTables.size()> m_values{};
};

struct ExportPlan {
    struct Table {
        bool isWanted = true;  // the runs always are
        std::string name;      // in the database, not quoted
    };
    PerTable<Table> tables;

    static constexpr std::size_t kMostName = 63;  // bytes

    ExportPlan();                                // everything, under the usual names
    std::vector<ExportTable> Wanted() const;     // the runs first
    std::string Fault(ExportTable table) const;  // one sentence why its name cannot be; empty when it can
};

using Quoter = std::function<std::string(std::string_view identifier)>;
std::string StandardQuote(std::string_view identifier);  // "so", as most databases have it

std::string CreateTableSql(ExportTable table, std::string_view name, const Quoter& quote);
std::string InsertSql(ExportTable table, std::string_view name, std::size_t rows, const Quoter& quote);
// Changes nothing, but makes a database that has one lock for all writers take it before anything is read.
std::string LockRunsSql(std::string_view runsName, const Quoter& quote);
std::string NextRunSql(std::string_view runsName, const Quoter& quote);
// Sets the numbers of rows of a run, in the order of kExportTables without the runs; the run comes last.
std::string RunRowsSql(std::string_view runsName, const Quoter& quote);

// Does a column with this SQL data type code hold such values? Types that are not known here do.
bool CanHold(int sqlType, ColumnKind kind);
