#include "export/ExportJob.h"
#include "export/ScriptedDatabase.h"
#include "export/SyntheticSnapshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>

namespace {

using Remains = ExportOutcome::Remains;

const ExportStamp kStamp{"web1", {45'000}, {45'001}, "Quillet 1.0"};

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
    ExportPlan counters;
    for (const auto table : kExportTables) counters.tables[table].isWanted = table == ExportTable::Counters;
    auto script = std::make_shared<DatabaseScript>();
    script->failAt = 16;
    script->failure = "57P01: the server goes";
    script->failureCode = Code::ServerUnavailable;
    EXPECT_EQ(Export(script, counters, snapshot).remains, Remains::Unknown);

    script = std::make_shared<DatabaseScript>();
    script->failAt = 13;
    script->undoesTables = false;
    const auto outcome = Export(script, counters, snapshot);
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

TEST(DatabaseExport, TakesOnlyARunNumberThatIsOne)
{
    const SyntheticSnapshot snapshot(10);
    for (const OdbcValue& next : {OdbcValue(1e300), OdbcValue(-9.3e18), OdbcValue(std::nan("")),
                                  OdbcValue(8.0), OdbcValue("8"), OdbcValue()}) {
        const auto script = std::make_shared<DatabaseScript>();
        script->nextRun = next;
        const auto outcome = Export(script, {}, snapshot);
        const bool isOne = next == OdbcValue(8.0);
        EXPECT_EQ(outcome.remains, isOne ? Remains::Everything : Remains::Nothing) << next.index();
        EXPECT_EQ(outcome.run, isOne ? 8 : 0) << next.index();
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
            EXPECT_EQ(outcome.remains, isDeaf && call > 1 ? Remains::Pending : Remains::Nothing) << call;
            const auto told = script->Told();
            const bool isUndone = std::find(told.begin(), told.end(), "rollback") != told.end();
            EXPECT_EQ(isUndone, !isDeaf && call >= 9) << call;
            script->Release();
        }
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

}  // namespace
