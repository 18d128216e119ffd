#include "export/ExportJob.h"
#include "export/SyntheticSnapshot.h"
#include "support/HiveRig.h"
#include "support/OdbcRig.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include <sys/resource.h>

namespace {

using namespace std::chrono_literals;
using Remains = ExportOutcome::Remains;

// Stops in the middle of the entries until it is told to go on.
class GatedSnapshot : public SyntheticSnapshot {
public:
    GatedSnapshot(std::int64_t entries, std::int64_t stopAt) : SyntheticSnapshot(entries)
    {
        onEntry = [this, stopAt](std::int64_t i) {
            while (i >= stopAt && !mayGoOn) std::this_thread::sleep_for(1ms);
        };
    }

    std::atomic<bool> mayGoOn = false;
};

std::string NameOf(const testing::TestParamInfo<const char*>& tested)
{
    return tested.param;
}

// The same for each database: a data source by its name.
class RealDatabases : public testing::TestWithParam<const char*> {
public:
    RealDatabases()
    {
        if (IsPostgres()) rig.StartPostgres();
    }

    static bool IsPostgres() { return std::string_view(GetParam()) == "PostgreSQL"; }

    std::string Source() const { return IsPostgres() ? rig.Postgresql() : rig.Sqlite(); }
    std::unique_ptr<ExportJob> Start(const CacheSnapshot& snapshot, const ExportPlan& plan = {}) const
    {
        const ExportStamp stamp{snapshot.Server(), snapshot.ScannedAt(), {45'001}, "Quillet 1.0"};
        return std::make_unique<ExportJob>(DatabaseAccess(), ShareLogin(Source(), "", ""), plan, stamp,
                                           snapshot);
    }
    static ExportOutcome Await(ExportJob& job)
    {
        const auto* outcome = job.Poll();
        for (; outcome == nullptr; outcome = job.Poll()) std::this_thread::sleep_for(2ms);
        return *outcome;
    }
    ExportOutcome Export(const CacheSnapshot& snapshot, const ExportPlan& plan = {}) const
    {
        return Await(*Start(snapshot, plan));
    }

    std::unique_ptr<OdbcConnection> Open() const { return std::move(*OpenOdbc({Source(), "", ""}, 10s)); }
    std::vector<OdbcValue> Ask(const std::string& sql) const
    {
        const auto database = Open();
        const auto statement = database->Prepare(sql);
        std::vector<OdbcValue> row;
        EXPECT_TRUE(statement && (*statement)->Execute({}) && *(*statement)->Fetch(row)) << sql;
        return row;
    }
    void Do(const std::string& sql) const { EXPECT_TRUE(Open()->Execute(sql)) << sql; }
    bool IsThere(const std::string& table) const { return !Open()->Columns(table)->empty(); }
    void ExpectNothing() const
    {
        for (const auto table : kExportTables) EXPECT_FALSE(IsThere(ExportPlan().tables[table].name));
    }

    OdbcRig rig;
};

using Row = std::vector<OdbcValue>;

TEST_P(RealDatabases, WhatWasExportedReadsBackEqual)
{
    const std::int64_t kEntries = 5'003;
    for (const std::int64_t run : {1, 2}) {
        const auto outcome = Export(SyntheticSnapshot(kEntries));
        ASSERT_EQ(outcome.remains, Remains::Everything) << outcome.error->description;
        EXPECT_EQ(outcome.run, run);
        EXPECT_EQ(outcome.rows[ExportTable::Entries], kEntries);
    }
    const SyntheticSnapshot snapshot(kEntries);
    const auto totals = snapshot.Totals();
    const Row sums{totals.count,
                   totals.uncompressedSize,
                   totals.compressedSize,
                   totals.servedCompressed,
                   totals.uncompEquivalent,
                   totals.totalHits,
                   totals.overwrites,
                   totals.totalLife};
    const std::string columns =
        R"(CAST(SUM("uncompressed_size") AS DOUBLE PRECISION), SUM("compressed_size"), )"
        R"(SUM("served_compressed"), SUM("uncomp_equivalent"), )"
        R"(CAST(SUM("total_hits") AS BIGINT), CAST(SUM("overwrites") AS BIGINT), )"
        R"(SUM("total_life_100ns") FROM )";
    EXPECT_EQ(Ask("SELECT COUNT(*), " + columns + R"("quillet_entries" WHERE "run" = 1)"), sums);
    EXPECT_EQ(Ask(R"(SELECT CAST(SUM("cached_urls") AS BIGINT), )" + columns +
                  R"("quillet_sites" WHERE "run" = 2)"),
              sums);
    EXPECT_EQ(Ask(R"(SELECT MAX("cached_urls"), )" + columns + R"("quillet_totals" WHERE "run" = 2)"), sums);
    EXPECT_EQ(
        Ask(R"(SELECT * FROM "quillet_runs" WHERE "run" = 2)"),
        (Row{std::int64_t{2}, "web'1\"; DROP TABLE x", "2023-03-15 18:00:00", "2023-03-16 00:00:00",
             "Quillet 1.0", std::int64_t{2}, kEntries, std::int64_t{2}, std::int64_t{1}, std::int64_t{3}}));
    EXPECT_EQ(Ask(R"(SELECT "path", "physical_path", "cached", "expires" FROM "quillet_entries" )"
                  R"(WHERE "run" = 1 AND "cache_id" = 30)"),
              (Row{"/a/'30\xEF\xBF\xBD\xEF\xBF\xBD.html\xE2\x90\x80",
                   "C:\\sites\\0\\index.html",
                   "2023-03-15 00:00:30",
                   {}}));
    EXPECT_EQ(Ask(R"(SELECT "name", "value" FROM "quillet_counters" WHERE "run" = 1 AND "value" > 20)"),
              (Row{"% hits \xE2\x82\xAC", 37.5}));
    EXPECT_EQ(Ask(R"(SELECT "name", "value" FROM "quillet_counters" WHERE "run" = 2 AND "name" = 'Unknown')"),
              (Row{"Unknown", {}}));
}

TEST_P(RealDatabases, ATableOfAnotherKindIsNamedAndLeftAlone)
{
    const struct {
        const char* columns;
        const char* fault;  // empty: it is taken
    } cases[] = {
        {R"("run" BIGINT, "name" TEXT)", "no column value"},
        {R"("run" BIGINT, "name" TEXT, "value" TEXT)", "column value has another type"},
        {R"("run" SMALLINT, "name" TEXT, "value" DOUBLE PRECISION)", "column run has another type"},
        {R"("run" BIGINT, "name" TIMESTAMP, "value" DOUBLE PRECISION)", "column name has another type"},
        {R"("run" BIGINT, "name" TEXT, "value" DOUBLE PRECISION, "x" TEXT)", "a column x"},
        {R"("run" BIGINT, "Name" TEXT, "value" DOUBLE PRECISION)", "no column name"},
        {R"("value" NUMERIC(20, 6), "name" VARCHAR(99), "run" INTEGER)", ""},
    };
    for (const auto& [columns, fault] : cases) {
        Do(std::string(R"(CREATE TABLE "quillet_counters" ()") + columns + ')');
        const auto outcome = Export(SyntheticSnapshot(10));
        const auto text = outcome.error ? outcome.error->description : "";
        EXPECT_NE(text.find(fault), std::string::npos) << text;
        EXPECT_EQ(text.find("quillet_counters") == std::string::npos, *fault == '\0') << text;
        EXPECT_EQ(IsThere("quillet_runs"), *fault == '\0');
        if (outcome.error) Do(R"(DROP TABLE "quillet_counters")");
    }
    EXPECT_EQ(Ask(R"(SELECT COUNT(*) FROM "quillet_counters" WHERE "run" = 1)"), Row{std::int64_t{3}});
}

TEST_P(RealDatabases, ACancelInTheMiddleLeavesNothing)
{
    GatedSnapshot snapshot(20'000, 10'000);
    const auto job = Start(snapshot);
    while (job->RowsWritten() < 5'000) std::this_thread::sleep_for(1ms);
    job->Cancel();
    snapshot.mayGoOn = true;
    const auto outcome = Await(*job);
    EXPECT_EQ(outcome.remains, Remains::Nothing);
    EXPECT_TRUE(outcome.error && outcome.error->Is(Code::Cancelled));
    EXPECT_TRUE(outcome.madeTables.empty());
    ExpectNothing();
}

TEST_P(RealDatabases, NamesOfTablesMayHoldAnything)
{
    ExportPlan plan;
    const std::string runs = "Select \"*\" from \xC3\xA4; --";
    plan.tables[ExportTable::Runs].name = runs;
    plan.tables[ExportTable::Entries].isWanted = false;
    for (const std::int64_t run : {1, 2}) {
        const auto outcome = Export(SyntheticSnapshot(10), plan);
        ASSERT_FALSE(outcome.error) << outcome.error->description;
        EXPECT_EQ(outcome.run, run);
    }
    EXPECT_FALSE(IsThere("quillet_entries"));
    EXPECT_EQ(Ask(R"(SELECT COUNT(*) FROM "quillet_sites" WHERE "run" = 2)"), Row{std::int64_t{2}});
    EXPECT_EQ(Ask("SELECT \"site_rows\", \"entry_rows\" FROM " + StandardQuote(runs) + " WHERE \"run\" = 2"),
              (Row{std::int64_t{2}, {}}));
}

// Where only the number is fought for, the second must try again; where all writers queue, it comes next.
TEST_P(RealDatabases, TwoExportsAtATimeAreNeverTheSameRun)
{
    ASSERT_FALSE(Export(SyntheticSnapshot(1)).error);
    GatedSnapshot slow(10'000, 1'000);
    const SyntheticSnapshot small(10);
    const auto first = Start(slow);
    while (first->RowsWritten() < 500) std::this_thread::sleep_for(1ms);
    const auto second = Start(small);
    std::this_thread::sleep_for(300ms);  // until it waits for the first
    slow.mayGoOn = true;
    EXPECT_EQ(Await(*first).remains, Remains::Everything);
    const auto outcome = Await(*second);
    EXPECT_EQ(outcome.run, IsPostgres() ? 2 : 3);
    const auto text = outcome.error ? outcome.error->description : "";
    EXPECT_EQ(text.find("Another export took run number 2") != std::string::npos, IsPostgres()) << text;
    EXPECT_EQ(Ask(R"(SELECT COUNT(*) FROM "quillet_runs")"), Row{std::int64_t{IsPostgres() ? 2 : 3}});
}

INSTANTIATE_TEST_SUITE_P(Odbc, RealDatabases, testing::Values("SQLite", "PostgreSQL"), NameOf);

class OnlySqlite : public RealDatabases {
public:
    void ExpectRefused(const CacheSnapshot& snapshot, const char* fault) const
    {
        const auto outcome = Export(snapshot);
        ASSERT_TRUE(outcome.error);
        EXPECT_NE(outcome.error->description.find(fault), std::string::npos) << outcome.error->description;
        EXPECT_EQ(outcome.remains, Remains::Nothing);
    }
};

TEST_P(OnlySqlite, ADatabaseThatCannotBeWrittenIsLeftAsItWas)
{
    ASSERT_FALSE(Export(SyntheticSnapshot(1)).error);
    const std::filesystem::path file = rig.SqliteFile();
    std::filesystem::permissions(file, std::filesystem::perms(0444));
    std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0755));
    // The driver manager reads the user's data sources only where it could write them.
    std::filesystem::permissions(file.parent_path() / "user.ini", std::filesystem::perms(0666));
    const auto child = StartChild([&] {
        BecomeOrdinaryUser();
        ExpectRefused(SyntheticSnapshot(1), "cannot be written");
    });
    EXPECT_TRUE(EndsWell(child));
    EXPECT_EQ(Ask(R"(SELECT COUNT(*) FROM "quillet_runs")"), Row{std::int64_t{1}});
}

TEST_P(OnlySqlite, AFullDiskIsUndone)
{
    const auto child = StartChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit small{200'000, 200'000};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        ExpectRefused(SyntheticSnapshot(20'000), "quillet_entries cannot be written");
    });
    EXPECT_TRUE(EndsWell(child));
    ExpectNothing();
}

INSTANTIATE_TEST_SUITE_P(Odbc, OnlySqlite, testing::Values("SQLite"), NameOf);

class OnlyPostgres : public RealDatabases {
public:
    // Exports, and does that to the server when some rows are written.
    ExportOutcome Disturb(void (*disturb)(PostgresRig&), const DatabaseAccess& access) const
    {
        GatedSnapshot snapshot(10'000, 1'000);
        ExportJob job(access, ShareLogin(Source(), "", ""), {}, {}, snapshot);
        while (job.RowsWritten() < 500) std::this_thread::sleep_for(1ms);
        disturb(*server);
        snapshot.mayGoOn = true;
        return Await(job);
    }

    PostgresRig* const server = &rig.Postgres();
};

TEST_P(OnlyPostgres, AServerThatGoesIsToldApartFromOneThatIsSilent)
{
    DatabaseAccess access;
    access.silence = access.farewell = 300ms;
    const auto silent = Disturb([](PostgresRig& postgres) { postgres.Freeze(); }, access);
    ASSERT_TRUE(silent.error);
    EXPECT_TRUE(silent.error->Is(Code::Timeout)) << silent.error->description;
    EXPECT_EQ(silent.remains, Remains::Pending);
    rig.Postgres().Thaw();

    const auto gone = Disturb([](PostgresRig& postgres) { postgres.Kill(); }, {});
    ASSERT_TRUE(gone.error);
    EXPECT_NE(gone.error->description.find("quillet_entries cannot be written"), std::string::npos)
        << gone.error->description;
    EXPECT_EQ(gone.remains, Remains::Nothing);
}

INSTANTIATE_TEST_SUITE_P(Odbc, OnlyPostgres, testing::Values("PostgreSQL"), NameOf);

}  // namespace
