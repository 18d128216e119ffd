#include "stats/modPerfCntr.h"

#include "stats/InitPerfCounters.h"
#include "support/ScriptedSource.h"

#include <gtest/gtest.h>

namespace {

struct Desk : MessageBoxes, MessagePump, ScreenPointer {
    std::string shown;
    int pointer = Default;
    int busyRuns = 0;
    std::function<void()> onRun = [] {};

    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override
    {
        shown += title + ": " + text + (style == BoxStyle::Exclamation ? " !" : " ?");
        return BoxAnswer::Ok;
    }
    void Run() override
    {
        busyRuns += pointer == Hourglass;
        const auto run = onRun;  // which may replace itself
        run();
    }
    int Get() const override { return pointer; }
    void Set(int value) override { pointer = value; }
};

class PerfCounters : public testing::Test {
protected:
    PerfCounters()
    {
        for (const auto* const machine : {"", "web01"})
            for (const auto& row : list) {
                const auto name = std::string_view(row.path).substr(row.path.rfind('\\') + 1);
                source.machines[machine].push_back({"Zentrel", "_Total", name, 0, 7, "Text."});
            }
    }
    void Init(CounterServer server) { InitPerfCounters(counters, list, server, "Title", {desk, desk, desk}); }
    // In a query of their own; what was told.
    std::string InitAnew(const CounterServer& server)
    {
        EXPECT_TRUE((counters.Query() == 0 || counters.CloseQuery()) && counters.OpenQuery());
        source.calls = desk.shown = "";
        Init(server);
        return desk.shown;
    }
    std::size_t Count() const { return counters.Counters().size(); }

    const CounterList list = MakeCounterList();
    ScriptedSource source;
    PerformanceData data{source};
    modPerfCntr counters{data};
    Desk desk;
};

const std::string kUnavailable = "Title: At least one of the performance counters is unavailable.\nError 0x";

}  // namespace

TEST_F(PerfCounters, AreAddedByTheBarePathHereAndByNameElsewhere)
{
    EXPECT_EQ(InitAnew({"HOST", true}), "");
    EXPECT_EQ(Count(), 19U);
    EXPECT_EQ(counters.Counters()[3].info.fullPath, list[3].path);
    EXPECT_EQ(desk.busyRuns, 19);
    EXPECT_EQ(desk.pointer, ScreenPointer::Default);
    EXPECT_EQ(InitAnew({"web01", false}), "");
    EXPECT_EQ(counters.Counters().at(18).info.fullPath, "\\\\web01" + list[18].path);
    EXPECT_EQ(source.calls, "read(web01) ");
}

TEST_F(PerfCounters, OnlyAnUnknownObjectHereIsTriedAgainByName)
{
    source.machines[""].clear();
    EXPECT_EQ(InitAnew({"web01", true}), "");
    EXPECT_EQ(Count(), 19U);
    EXPECT_EQ(counters.Counters()[0].info.fullPath, "\\\\web01" + list[0].path);

    source.errors["web01"] = Code::AccessDenied;  // the second try's status is the one that is told
    EXPECT_EQ(InitAnew({"web01", true}),
              kUnavailable + "C0000BC3 - Unable to connect to the requested machine. !");

    source.errors[""] = Code::ServerUnavailable;
    EXPECT_EQ(InitAnew({"web01", true}),
              kUnavailable + "800007D0 - Unable to connect to specified machine or machine is off line. !");
    EXPECT_EQ(source.calls, "read() ");
}

TEST_F(PerfCounters, FailuresAreToldOnceAndLeaveNoGaps)
{
    auto& here = source.machines[""];
    here.erase(here.begin() + 17);
    here.erase(here.begin() + 4);
    here[0].explainText.reset();  // cannot be read: the counter is there all the same
    desk.onRun = [this] { counters.CheckStatus(Pdh::NoData); };  // after a failure was remembered
    EXPECT_EQ(InitAnew({"HOST", true}),
              kUnavailable + "C0000BB9 - The specified counter could not be found. !");
    EXPECT_EQ(Count(), 17U);
    EXPECT_EQ(counters.Counters()[0].info.counterName, "");
    EXPECT_EQ(counters.Counters()[4].label, "Bytes Total");
}

TEST_F(PerfCounters, TheQueryMayBeClosedOrReplacedWhileMessagesRun)
{
    desk.onRun = [this] { counters.CloseQuery(); };
    EXPECT_EQ(InitAnew({"HOST", true}), "");
    EXPECT_EQ(Count(), 0U);
    desk.onRun = [this] {
        desk.onRun = [] {};
        EXPECT_TRUE(counters.CloseQuery() && counters.OpenQuery());
        Init({"web01", false});
    };
    EXPECT_EQ(InitAnew({"HOST", true}), "");
    EXPECT_EQ(Count(), 19U);
    EXPECT_EQ(counters.Counters()[18].info.machine, "web01");
}

TEST_F(PerfCounters, StatusesBecomeTexts)
{
    const std::string fallback = "PDH Function could not be executed";
    const std::pair<PdhStatus, std::string_view> cases[] = {
        {0x800007CF, fallback},
        {0xC0000BB9, "The specified counter could not be found."},
        {5, ""},
    };
    for (const auto& [status, text] : cases) {
        EXPECT_FALSE(counters.CheckStatus(status));
        EXPECT_EQ(counters.LastText(), text) << std::hex << status;
        EXPECT_EQ(counters.LastSeverity(), status >> 30);
    }
    int known = 0;
    for (PdhStatus low = 0x700; low < 0xD00; ++low)
        for (const auto status : {0x80000000U | low, 0xC0000000U | low})
            known += PdhStatusText(status) != fallback;
    EXPECT_EQ(known, 55);
}
