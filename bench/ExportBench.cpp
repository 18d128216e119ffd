#include "Benches.h"

#include "export/ExportJob.h"
#include "export/ExportRows.h"
#include "platform/Sqlite.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>

namespace {

using std::filesystem::path;

constexpr std::int64_t kEntries = 1'000'000;
constexpr const char* kSource = "quillet-bench";

// As many cached URLs as a large server has, made one by one.
class BenchSnapshot : public CacheSnapshot {
public:
    std::string Server() const override { return "bench"; }
    DateTime ScannedAt() const override { return {45'000}; }
    CacheFigures Totals() const override
    {
        CacheFigures totals;
        totals.count = kEntries;
        return totals;
    }
    std::vector<SnapshotSite> Sites() const override { return {{1, "Default Web Site", Totals()}}; }
    std::vector<SnapshotType> Types() const override { return {{"html", Totals()}}; }
    std::vector<SnapshotCounter> Counters() const override { return {{"Requests/Sec", 12.5}}; }
    void ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const override
    {
        SnapshotEntry entry;
        entry.site = 1;
        entry.type = "html";
        for (std::int64_t i = 0; i < kEntries; ++i) {
            const auto folder = std::to_string(i / 1000);
            entry.path = "/articles/" + folder + "/page-" + std::to_string(i) + ".html";
            entry.physicalPath = "C:\\inetpub\\wwwroot\\articles\\" + folder + "\\page.html";
            entry.level = 6;
            entry.cacheId = static_cast<std::int32_t>(i);
            entry.cached = entry.modified = {45'000 + static_cast<double>(i) / 86'400};
            entry.expires = {46'000};
            const auto size = static_cast<double>(i % 65'536);
            entry.figures = {1,       size * 4, size,  size * 10,  size * 40,
                             i % 100, i % 90,   i % 3, size * 1e7, size};
            if (!take(entry)) return;
        }
    }
};

path NewFile(const path& scratch)
{
    auto file = scratch / "export.db";
    std::error_code error;
    for (const auto* tail : {"", "-journal"}) std::filesystem::remove(file.string() + tail, error);
    return file;
}

void ExportThroughOdbc(benchmark::State& state, const path& scratch)
{
    const auto settings = scratch / "odbc.ini";
    std::ofstream(settings) << '[' << kSource
                            << "]\nDriver = SQLite3\nDatabase = " << (scratch / "export.db").string() << '\n';
    setenv("ODBCINI", settings.c_str(), 1);
    const BenchSnapshot snapshot;
    for ([[maybe_unused]] auto _ : state) {
        NewFile(scratch);
        const auto before = PrivateMemory();
        double most = before;
        const auto start = std::chrono::steady_clock::now();
        ExportJob job({}, ShareLogin(kSource, "", ""), {}, {"bench", {}, {}, "bench"}, snapshot);
        const auto* outcome = job.Poll();
        for (; outcome == nullptr; outcome = job.Poll()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            most = std::max(most, PrivateMemory());
        }
        state.SetIterationTime(SecondsSince(start));
        if (outcome->error) return state.SkipWithError(outcome->error->description.c_str());
        state.counters["memory"] = most - before;
    }
    NewFile(scratch);
}

void BindRow(sqlite3_stmt* statement, const ExportRow& row)
{
    for (int i = 0; i < static_cast<int>(row.size()); ++i) {
        const auto& value = row[static_cast<std::size_t>(i)];
        if (const auto* const text = std::get_if<std::string>(&value)) {
            sqlite3_bind_text(statement, i + 1, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
        } else if (const auto* const whole = std::get_if<std::int64_t>(&value)) {
            sqlite3_bind_int64(statement, i + 1, *whole);
        } else if (const auto* const real = std::get_if<double>(&value)) {
            sqlite3_bind_double(statement, i + 1, *real);
        } else {
            sqlite3_bind_null(statement, i + 1);
        }
    }
}

// The least that any program would have to do: the same rows, one prepared statement, one transaction.
int WriteDirectly(sqlite3* db, const CacheSnapshot& snapshot)
{
    sqlite::Run(db, CreateTableSql(ExportTable::Entries, "entries", StandardQuote).c_str());
    sqlite::Run(db, "BEGIN");
    sqlite3_stmt* statement = nullptr;
    const auto sql = InsertSql(ExportTable::Entries, "entries", 1, StandardQuote);
    sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr);
    int result = SQLITE_DONE;
    ForEachExportRow(ExportTable::Entries, snapshot, [&](const ExportRow& row) {
        BindRow(statement, row);
        result = sqlite3_step(statement);
        sqlite3_reset(statement);
        return result == SQLITE_DONE;
    });
    sqlite3_finalize(statement);
    return result == SQLITE_DONE ? sqlite::Run(db, "COMMIT") : result;
}

void ExportDirectly(benchmark::State& state, const path& scratch)
{
    for ([[maybe_unused]] auto _ : state) {
        const auto file = NewFile(scratch);
        const auto start = std::chrono::steady_clock::now();
        sqlite3* opened = nullptr;
        sqlite3_open(file.c_str(), &opened);
        sqlite::Connection db(opened);
        if (WriteDirectly(db.get(), BenchSnapshot()) != SQLITE_OK) return state.SkipWithError("not written");
        db.reset();
        state.SetIterationTime(SecondsSince(start));
    }
    NewFile(scratch);
}

}  // namespace

void RegisterExportBenches(const path& scratch)
{
    Register("export/odbc", [scratch](benchmark::State& state) { ExportThroughOdbc(state, scratch); });
    Register("export/sqlite", [scratch](benchmark::State& state) { ExportDirectly(state, scratch); });
}
