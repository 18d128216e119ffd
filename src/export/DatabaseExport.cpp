#include "export/DatabaseExport.h"

#include "base/FillIn.h"
#include "base/Translate.h"
#include "export/ExportRows.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr const char* kSource = "Export";
constexpr double kMostExact = 9'007'199'254'740'992;  // whole numbers as floating point ones

SystemError Explained(SystemError error, std::string_view what, std::string_view name = {})
{
    error.description = FillIn(what, {error.description, DatabaseText(name)});
    return error;
}

// The state behind "23505: duplicate key"; empty when it has none.
std::string_view SqlState(const SystemError& error)
{
    const std::string_view text = error.description;
    return text.size() > 5 && text[5] == ':' ? text.substr(0, 5) : std::string_view();
}

std::string NameTaken(std::int64_t run)
{
    return FillIn(
        Translate("DatabaseExport", "Another export took run number %1 at the same time. Try again."),
        {std::to_string(run)});
}

class Writer {
public:
    Writer(OdbcConnection& database, const ExportPlan& plan, const ExportStamp& stamp, ExportQueue& queue,
           ExportProgress& progress)
        : m_database(database),
          m_plan(plan),
          m_stamp(stamp),
          m_queue(queue),
          m_progress(progress)
    {
    }

    ExportOutcome Run()
    {
        const auto written = Write();
        if (written) {
            m_outcome.remains = ExportOutcome::Remains::Everything;
        } else {
            Undo(written.error());
        }
        return std::move(m_outcome);
    }

private:
    Done Write();
    Done LookAtTables();
    Done MakeTables();
    Done CheckColumns(ExportTable table, const std::vector<OdbcColumn>& columns) const;
    Done BeginRun();
    Result<std::int64_t> NextRun();
    Done WriteRows();
    Done WriteChunk(ExportChunk& chunk);
    Done EndRun();
    Done Commit();
    void Undo(const SystemError& error);
    void FindLeftTables();

    Done Once(const std::string& sql, const std::vector<OdbcValue>& parameters);
    Result<OdbcStatement*> Inserting(ExportTable table, std::size_t rows);
    // Ends the export when it was asked to stop; else the answer counts as a step.
    Done Stepped();

    const std::string& NameOf(ExportTable table) const { return m_plan.tables[table].name; }
    Quoter Quote() const
    {
        return [this](std::string_view name) { return m_database.Quote(name); };
    }

    OdbcConnection& m_database;
    const ExportPlan& m_plan;
    const ExportStamp& m_stamp;
    ExportQueue& m_queue;
    ExportProgress& m_progress;

    ExportOutcome m_outcome;
    std::vector<ExportTable> m_missing;
    std::unique_ptr<OdbcStatement> m_inserting;  // whole chunks of m_insertingTable
    ExportTable m_insertingTable = ExportTable::Runs;
    bool m_isBegun = false;
    bool m_isCommitting = false;
    bool m_isLost = false;  // the connection, while committing
};

Done Writer::Stepped()
{
    ++m_progress.steps;
    if (m_progress.isCancelled) return Fail(Code::Cancelled, kSource);
    return {};
}

Done Writer::Write()
{
    if (auto ready = Stepped(); !ready) return ready;
    if (m_database.IsReadOnly())
        return Fail(Code::AccessDenied, kSource,
                    Translate("DatabaseExport", "The database can only be read, not written."));
    if (auto looked = LookAtTables(); !looked) return looked;
    if (auto begun = m_database.Begin(); !begun) return begun;
    m_isBegun = true;
    if (auto made = MakeTables(); !made) return made;
    if (auto begun = BeginRun(); !begun) return begun;
    if (auto written = WriteRows(); !written) return written;
    if (auto ended = EndRun(); !ended) return ended;
    return Commit();
}

// ---- tables

// Before the transaction, which a failing look at a missing table would end in some databases.
Done Writer::LookAtTables()
{
    for (const auto table : m_plan.Wanted()) {
        const auto& name = NameOf(table);
        const auto columns = m_database.Columns(name);
        if (!columns)
            return Fail(Explained(columns.error(),
                                  Translate("DatabaseExport", "Table %2 cannot be looked up: %1"), name));
        if (columns->empty()) {
            m_missing.push_back(table);
        } else if (auto checked = CheckColumns(table, *columns); !checked) {
            return checked;
        }
        if (auto go = Stepped(); !go) return go;
    }
    return {};
}

Done Writer::MakeTables()
{
    for (const auto table : m_missing) {
        const auto& name = NameOf(table);
        const auto made = m_database.Execute(CreateTableSql(table, name, Quote()));
        if (!made)
            return Fail(
                Explained(made.error(), Translate("DatabaseExport", "Table %2 cannot be made: %1"), name));
        m_outcome.madeTables.push_back(name);
        if (auto go = Stepped(); !go) return go;
    }
    return {};
}

// An existing table is used as it is, or not at all.
Done Writer::CheckColumns(ExportTable table, const std::vector<OdbcColumn>& columns) const
{
    const auto wanted = ColumnsOf(table);
    const auto refuse = [&](const std::string& why, std::string_view column) {
        return Fail(Code::InvalidData, kSource,
                    FillIn(why, {DatabaseText(NameOf(table)), DatabaseText(column)}));
    };
    for (const auto& column : wanted) {
        const auto found = std::find_if(columns.begin(), columns.end(),
                                        [&](const OdbcColumn& held) { return held.name == column.name; });
        if (found == columns.end())
            return refuse(
                Translate("DatabaseExport", "There is a table %1 of another kind: it has no column %2."),
                column.name);
        if (!CanHold(found->type, column.kind))
            return refuse(Translate("DatabaseExport",
                                    "There is a table %1 of another kind: its column %2 has another type."),
                          column.name);
    }
    for (const auto& column : columns)
        if (std::none_of(wanted.begin(), wanted.end(),
                         [&](const ExportColumn& own) { return own.name == column.name; }))
            return refuse(
                Translate("DatabaseExport", "There is a table %1 of another kind: it has a column %2."),
                column.name);
    return {};
}

// ---- the run's row

Done Writer::Once(const std::string& sql, const std::vector<OdbcValue>& parameters)
{
    const auto statement = m_database.Prepare(sql);
    if (!statement) return Fail(statement.error());
    const auto changed = (*statement)->Execute(parameters);
    if (!changed) return Fail(changed.error());
    return Stepped();
}

Result<std::int64_t> Writer::NextRun()
{
    const auto statement = m_database.Prepare(NextRunSql(NameOf(ExportTable::Runs), Quote()));
    if (!statement) return Fail(statement.error());
    if (const auto asked = (*statement)->Execute({}); !asked) return Fail(asked.error());
    std::vector<OdbcValue> row;
    const auto fetched = (*statement)->Fetch(row);
    if (!fetched) return Fail(fetched.error());
    if (row.size() == 1) {
        if (const auto* const number = std::get_if<std::int64_t>(row.data())) return *number;
        const auto* const real = std::get_if<double>(row.data());
        if (real != nullptr && std::abs(*real) <= kMostExact) return static_cast<std::int64_t>(*real);
    }
    return Fail(Code::InvalidData, kSource,
                Translate("DatabaseExport", "The table of runs holds no usable numbers."));
}

// Takes the number before any row uses it: of two exports at a time, the database lets one have it.
Done Writer::BeginRun()
{
    const auto& name = NameOf(ExportTable::Runs);
    const auto locked = m_database.Execute(LockRunsSql(name, Quote()));
    if (!locked)
        return Fail(
            Explained(locked.error(), Translate("DatabaseExport", "Table %2 cannot be written: %1"), name));
    if (auto go = Stepped(); !go) return go;
    const auto next = NextRun();
    if (!next)
        return Fail(
            Explained(next.error(), Translate("DatabaseExport", "Table %2 cannot be read: %1"), name));
    m_outcome.run = *next;
    std::vector<OdbcValue> values{*next, DatabaseText(m_stamp.server), MomentValue(m_stamp.scannedAt),
                                  MomentValue(m_stamp.exportedAt), DatabaseText(m_stamp.program)};
    values.resize(ColumnsOf(ExportTable::Runs).size());
    auto begun = Once(InsertSql(ExportTable::Runs, name, 1, Quote()), values);
    if (begun || begun.error().Is(Code::Cancelled)) return begun;
    if (SqlState(begun.error()).starts_with("23")) begun.error().description = NameTaken(*next);
    return Fail(
        Explained(begun.error(), Translate("DatabaseExport", "Table %2 cannot be written: %1"), name));
}

Done Writer::EndRun()
{
    std::vector<OdbcValue> values;
    for (const auto table : kExportTables) {
        if (table == ExportTable::Runs) continue;
        values.emplace_back();
        if (m_plan.tables[table].isWanted) values.back() = m_outcome.rows[table];
    }
    values.emplace_back(m_outcome.run);
    m_outcome.rows[ExportTable::Runs] = 1;
    return Once(RunRowsSql(NameOf(ExportTable::Runs), Quote()), values);
}

// ---- all other rows

Done Writer::WriteRows()
{
    for (ExportChunk chunk; m_queue.Take(chunk);)
        if (auto written = WriteChunk(chunk); !written) return written;
    m_inserting.reset();
    if (!m_queue.IsStopped()) return {};
    if (m_progress.isCancelled) return Fail(Code::Cancelled, kSource);
    return Fail(Code::InvalidData, kSource, Translate("DatabaseExport", "The last scan could not be read."));
}

Result<OdbcStatement*> Writer::Inserting(ExportTable table, std::size_t rows)
{
    const bool isWhole = rows == ExportFeed::kChunkRows;
    if (isWhole && m_inserting != nullptr && m_insertingTable == table) return m_inserting.get();
    m_inserting.reset();
    auto prepared = m_database.Prepare(InsertSql(table, NameOf(table), rows, Quote()));
    if (!prepared) return Fail(prepared.error());
    m_inserting = std::move(*prepared);
    m_insertingTable = isWhole ? table : ExportTable::Runs;  // the odd rest is not used again
    return m_inserting.get();
}

Done Writer::WriteChunk(ExportChunk& chunk)
{
    const auto columns = ColumnsOf(chunk.table).size();
    chunk.values.resize(chunk.rows * columns);
    for (std::size_t row = 0; row < chunk.rows; ++row) chunk.values[row * columns] = m_outcome.run;

    const auto& name = NameOf(chunk.table);
    const auto inserting = Inserting(chunk.table, chunk.rows);
    if (!inserting)
        return Fail(Explained(inserting.error(),
                              Translate("DatabaseExport", "Table %2 cannot be written: %1"), name));
    const auto written = (*inserting)->Execute(chunk.values);
    if (!written)
        return Fail(
            Explained(written.error(), Translate("DatabaseExport", "Table %2 cannot be written: %1"), name));
    m_outcome.rows[chunk.table] += static_cast<std::int64_t>(chunk.rows);
    m_progress.rows += static_cast<std::int64_t>(chunk.rows);
    return Stepped();
}

// ---- the end

Done Writer::Commit()
{
    m_isCommitting = true;
    m_progress.isCommitting = true;
    const auto committed = m_database.Commit();
    if (committed) return {};
    m_isLost = committed.error().Is(Code::ServerUnavailable);
    return Fail(
        Explained(committed.error(), Translate("DatabaseExport", "The database cannot keep the export: %1")));
}

void Writer::Undo(const SystemError& error)
{
    const bool isStopped = m_progress.isCancelled && !m_isCommitting;
    m_outcome.error = isStopped ? Fail(Code::Cancelled, kSource).value() : error;
    m_inserting.reset();
    m_queue.Stop();
    const bool isUndone = !m_isBegun || m_database.Rollback().has_value();
    // A database that went away undoes by itself what it was not told to keep.
    const bool mayBeKept = m_isCommitting && (!isUndone || m_isLost);
    m_outcome.remains = mayBeKept ? ExportOutcome::Remains::Unknown : ExportOutcome::Remains::Nothing;
    if (!mayBeKept) FindLeftTables();
}

// Some databases keep what was made in a transaction that is undone. Some undo it by themselves when a call
// is cancelled and then find nothing to undo, so a failed call says nothing about what is there.
void Writer::FindLeftTables()
{
    std::vector<std::string> left;
    for (auto& name : m_outcome.madeTables) {
        const auto columns = m_database.Columns(name);
        if (!columns) break;
        if (!columns->empty()) left.push_back(std::move(name));
    }
    m_outcome.madeTables = std::move(left);
}

}  // namespace

ExportOutcome RunExport(OdbcConnection& database, const ExportPlan& plan, const ExportStamp& stamp,
                        ExportQueue& queue, ExportProgress& progress)
{
    return Writer(database, plan, stamp, queue, progress).Run();
}
