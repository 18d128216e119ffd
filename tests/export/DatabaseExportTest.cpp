#include "export/ConnectionTest.h"
#include "export/ExportJob.h"
#include "export/ScriptedDatabase.h"
#include "export/SyntheticSnapshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include <sqlext.h>

namespace {

using Remains = ExportOutcome::Remains;

const ExportStamp kStamp{"web1", {45'000}, {45'001}, "Quillet 1.0"};

ExportPlan Only(std::initializer_list<ExportTable> wanted)
{
    ExportPlan plan;
    for (const auto table : kExportTables)
        plan.tables[table].isWanted = std::find(wanted.begin(), wanted.end(), table) != wanted.end();
    return plan;
}

ExportOutcome Export(const SharedScript& script, const ExportPlan& plan, const CacheSnapshot& snapshot)
{
    ScriptedDatabase database(script);
    ExportFeed feed(snapshot, plan);
    ExportProgress progress;
    return RunExport(database, plan, kStamp, *feed.Queue(), progress);
}

const ExportOutcome& Await(ExportJob& job)
{
    const auto* outcome = job.Poll();
    for (; outcome == nullptr; outcome = job.Poll())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return *outcome;
}

TEST(DatabaseExport, WritesOneRunInOneTransaction)
{
    const auto script = std::make_shared<DatabaseScript>();
    const auto plan = Only({ExportTable::Counters});
    const auto outcome = Export(script, plan, SyntheticSnapshot(10));
    EXPECT_EQ(outcome.remains, Remains::Everything);
    EXPECT_EQ(outcome.run, 7);
    EXPECT_EQ(outcome.rows[ExportTable::Counters], 3);
    const std::vector<std::string> expected{
        "columns quillet_runs",
        "columns quillet_counters",
        "begin",
        CreateTableSql(ExportTable::Runs, "quillet_runs", StandardQuote),
        CreateTableSql(ExportTable::Counters, "quillet_counters", StandardQuote),
        LockRunsSql("quillet_runs", StandardQuote),
        "prepare " + NextRunSql("quillet_runs", StandardQuote),
        "run SELECT",
        "fetch",
        "prepare " + InsertSql(ExportTable::Runs, "quillet_runs", 1, StandardQuote),
        "run INSERT",
        "prepare " + InsertSql(ExportTable::Counters, "quillet_counters", 3, StandardQuote),
        "run INSERT",
        "prepare " + RunRowsSql("quillet_runs", StandardQuote),
        "run UPDATE",
        "commit"};
    EXPECT_EQ(script->told, expected);
    using Row = std::vector<OdbcValue>;
    constexpr std::int64_t kRun = 7;
    EXPECT_EQ(script->parameters[2],
              (Row{kRun, "Requests/Sec", 12.5, kRun, "% hits \xE2\x82\xAC", 37.5, kRun, "Unknown", {}}));
    EXPECT_EQ(script->parameters[3], (Row{{}, {}, {}, {}, std::int64_t{3}, kRun}));
}

TEST(DatabaseExport, EntriesGoInChunksThatShareAStatement)
{
    const auto script = std::make_shared<DatabaseScript>();
    constexpr auto kRows = static_cast<std::int64_t>(2 * ExportFeed::kChunkRows + 5);
    const auto outcome = Export(script, Only({ExportTable::Entries}), SyntheticSnapshot(kRows));
    EXPECT_EQ(outcome.rows[ExportTable::Entries], kRows);
    const auto columns = ColumnsOf(ExportTable::Entries).size();
    std::vector<std::size_t> sizes;
    for (const auto& values : script->parameters) sizes.push_back(values.size() / columns);
    EXPECT_EQ(sizes, (std::vector<std::size_t>{0, 0, ExportFeed::kChunkRows, ExportFeed::kChunkRows, 5, 0}));
    const auto prepared = std::count_if(script->told.begin(), script->told.end(), [](const auto& call) {
        return call.starts_with("prepare INSERT INTO \"quillet_entries\"");
    });
    EXPECT_EQ(prepared, 2);
}

TEST(DatabaseExport, AFailureAtAnyCallIsToldAndUndone)
{
    const SyntheticSnapshot snapshot(200);
    for (int call = 1;; ++call) {
        const auto script = std::make_shared<DatabaseScript>();
        script->failAt = call;
        const auto outcome = Export(script, {}, snapshot);
        if (outcome.remains == Remains::Everything) {
            EXPECT_GT(call, 25) << "all calls had their turn";
            break;
        }
        ASSERT_TRUE(outcome.error) << call;
        EXPECT_NE(outcome.error->description.find("on purpose"), std::string::npos) << call;
        EXPECT_EQ(outcome.remains, Remains::Nothing) << call;
        EXPECT_TRUE(outcome.madeTables.empty()) << call;
        const auto& told = script->told;
        const auto begun = std::find(told.begin(), told.end(), "begin");
        const bool isBegun = begun != told.end() && begun - told.begin() + 1 != call;
        EXPECT_EQ(std::count(told.begin(), told.end(), "rollback"), isBegun ? 1 : 0) << call;
    }
}

TEST(DatabaseExport, SaysWhatItDoesNotKnowAndWhatStayed)
{
    const SyntheticSnapshot snapshot(10);
    auto script = std::make_shared<DatabaseScript>();
    script->failAt = 16;
    script->failure = "57P01: the server goes";
    script->failureCode = Code::ServerUnavailable;
    EXPECT_EQ(Export(script, Only({ExportTable::Counters}), snapshot).remains, Remains::Unknown);

    script = std::make_shared<DatabaseScript>();
    script->failAt = 13;
    script->undoesTables = false;
    const auto outcome = Export(script, Only({ExportTable::Counters}), snapshot);
    EXPECT_EQ(outcome.madeTables, (std::vector<std::string>{"quillet_runs", "quillet_counters"}));

    script = std::make_shared<DatabaseScript>();
    script->failAt = 10;
    script->failure = "23505: duplicate key";
    EXPECT_NE(Export(script, {}, snapshot).error->description.find("cannot be"), std::string::npos);
    script->told.clear();
    script->failAt = 19;
    EXPECT_NE(Export(script, {}, snapshot).error->description.find("run number 7"), std::string::npos);

    script = std::make_shared<DatabaseScript>();
    script->isReadOnly = true;
    EXPECT_TRUE(Export(script, {}, snapshot).error->Is(Code::AccessDenied));
    EXPECT_TRUE(script->told.empty());
}

TEST(DatabaseExport, ATableWithOtherColumnsIsRefused)
{
    const std::vector<OdbcColumn> good{
        {"run", SQL_BIGINT, true}, {"name", SQL_VARCHAR, true}, {"value", SQL_DOUBLE, true}};
    const struct {
        const char* what;
        std::function<void(std::vector<OdbcColumn>&)> change;
        const char* fault;  // empty: it is taken
    } cases[] = {
        {"as it should be", [](auto&) {}, ""},
        {"another order", [](auto& columns) { std::swap(columns[0], columns[2]); }, ""},
        {"one less", [](auto& columns) { columns.pop_back(); }, "it has no column value"},
        {"one more",
         [](auto& columns) {
             columns.push_back({"x", SQL_BIGINT, true});
         },
         "it has a column x"},
        {"another type", [](auto& columns) { columns[1].type = SQL_BIGINT; },
         "its column name has another type"},
        {"other capitals", [](auto& columns) { columns[1].name = "Name"; }, "it has no column name"},
    };
    for (const auto& [what, change, fault] : cases) {
        const auto script = std::make_shared<DatabaseScript>();
        auto& columns = script->tables["quillet_counters"];
        columns = good;
        change(columns);
        const auto outcome = Export(script, Only({ExportTable::Counters}), SyntheticSnapshot(1));
        EXPECT_EQ(outcome.error.has_value(), *fault != '\0') << what;
        if (!outcome.error) continue;
        EXPECT_NE(outcome.error->description.find("quillet_counters"), std::string::npos) << what;
        EXPECT_NE(outcome.error->description.find(fault), std::string::npos) << outcome.error->description;
        EXPECT_EQ(std::count(script->told.begin(), script->told.end(), "begin"), 0) << what;
    }
}

// ---- the job

class HangingJob : public testing::Test {
public:
    ~HangingJob() override { script->Release(); }

    DatabaseAccess Impatient() const
    {
        auto access = AccessTo(script);
        access.connecting = std::chrono::milliseconds(60);
        access.silence = std::chrono::milliseconds(60);
        access.farewell = std::chrono::milliseconds(60);
        return access;
    }
    std::unique_ptr<ExportJob> Start(const DatabaseAccess& access) const
    {
        return std::make_unique<ExportJob>(access, ShareLogin("s", "u", "p"), ExportPlan(), kStamp, snapshot);
    }

    SharedScript script = std::make_shared<DatabaseScript>();
    SyntheticSnapshot snapshot{1000};
};

TEST_F(HangingJob, IsGivenUpWhereverItHangs)
{
    for (const bool isDeaf : {false, true})
        for (const int call : {1, 2, 8, 20, 30}) {
            script = std::make_shared<DatabaseScript>();
            script->hangAt = call;
            script->isDeaf = isDeaf;
            const auto job = Start(Impatient());
            const auto& outcome = Await(*job);
            ASSERT_TRUE(outcome.error) << call;
            EXPECT_EQ(outcome.error->description, "The database does not answer.") << call;
            EXPECT_EQ(outcome.remains, Remains::Nothing) << call;
            const auto told = script->Told();
            const bool isUndone = std::find(told.begin(), told.end(), "rollback") != told.end();
            EXPECT_EQ(isUndone, !isDeaf && call >= 9) << call;
            script->Release();
        }
}

TEST_F(HangingJob, StopsWhenTheUserCancels)
{
    script->hangAt = 20;
    const auto job = Start(AccessTo(script));
    ASSERT_TRUE(script->AwaitHang());
    job->Cancel();
    const auto& outcome = Await(*job);
    EXPECT_TRUE(outcome.error->Is(Code::Cancelled));
    EXPECT_EQ(outcome.remains, Remains::Nothing);
    const auto told = script->Told();
    EXPECT_EQ(std::count(told.begin(), told.end(), "rollback"), 1);
}

TEST_F(HangingJob, LeavesTheSnapshotAloneWhenItsOwnerGoes)
{
    std::atomic<bool> mayRead = true;
    std::atomic<bool> hasReadToo = false;
    snapshot.onEntry = [&](std::int64_t) { hasReadToo = hasReadToo || !mayRead; };
    script->hangAt = 20;
    script->isDeaf = true;
    auto job = Start(Impatient());
    ASSERT_TRUE(script->AwaitHang());
    job.reset();
    mayRead = false;
    script->Release();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(hasReadToo);
}

TEST_F(HangingJob, ATestOfAConnectionSaysWhatCameOfIt)
{
    const struct {
        int failAt, hangAt;
        bool isReadOnly, isGood;
        const char* text;
    } cases[] = {
        {0, 0, false, true, "Connected to Script through libscript.so."},
        {0, 0, true, true, "Connected to Script through libscript.so, for reading only."},
        {1, 0, false, false, "Not connected: HY000: on purpose"},
        {0, 1, false, false, "The data source does not answer."},
    };
    for (const auto& [failAt, hangAt, isReadOnly, isGood, text] : cases) {
        script = std::make_shared<DatabaseScript>();
        script->failAt = failAt;
        script->hangAt = hangAt;
        script->isReadOnly = isReadOnly;
        ConnectionTest test(Impatient(), ShareLogin("s", "u", "p"));
        auto outcome = test.Poll();
        for (; !outcome; outcome = test.Poll()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_EQ(outcome->isGood, isGood);
        EXPECT_EQ(outcome->text, text);
        script->Release();
    }
}

}  // namespace
