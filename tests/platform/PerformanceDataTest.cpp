#include "platform/PerformanceData.h"

#include "support/ScriptedSource.h"

#include <gtest/gtest.h>

namespace {

class Performance : public testing::Test {
protected:
    Performance()
    {
        source.machines[""] = source.machines["web01"] = {
            {"Pump", "_Total", "Strokes", PdhType::LargeRawCount, 3, "How often (so far)."},
            {"Pump", "_Total", "% Busy (all)", PdhType::RawFraction, 37.5, {}},
            {"Clock", "", "Ticks", PdhType::RawCount, 9, "Ticks."},
        };
        EXPECT_EQ(data.OpenQuery(query), Pdh::Good);
    }

    PdhStatus Add(std::string_view path) { return data.AddCounter(query, path, counter); }
    double Value()
    {
        double value = -1;
        data.GetDoubleCounterValue(counter, value);
        return value;
    }

    ScriptedSource source;
    PerformanceData data{source};
    QueryHandle query = 0;
    CounterHandle counter = 0;
};

}  // namespace

TEST_F(Performance, PathsLeadToCountersOrSayWhyNot)
{
    const std::pair<std::string_view, PdhStatus> cases[] = {
        {"\\pump(_total#0)\\STROKES", Pdh::Good},
        {"\\\\web01\\Pump(_Total)\\Strokes", Pdh::Good},
        {"\\Clock\\Ticks", Pdh::Good},
        {"\\Valve(_Total)\\Strokes", Pdh::NoObject},
        {"\\Pump(_Total#1)\\Strokes", Pdh::NoInstance},
        {"\\Pump(_Total)\\Leaks", Pdh::NoCounter},
        {"\\\\web02\\Pump(_Total)\\Strokes", Pdh::NoObject},  // answers, and publishes nothing
        {"", Pdh::InvalidArgument},
        {"\\Pump(_Total)\\", Pdh::NoCounterName},
        {"\\Pump(_Total\\Strokes", Pdh::BadInstance},
        {"\\\\web01", Pdh::BadPath},
        {"\\Clock\\Ticks\\More", Pdh::BadPath},
    };
    for (const auto& [path, status] : cases) EXPECT_EQ(Add(path), status) << path;
    EXPECT_EQ(source.calls, "read() read(web01) read(web02) ");

    CounterPath parts;
    EXPECT_EQ(ParseCounterPath("\\\\web\\Disk(C:\\a (b)/d#7)\\Reads/s", parts), Pdh::Good);
    EXPECT_EQ(parts.machine + '|' + parts.object + '|' + parts.parentInstance + '|' + parts.instance + '|' +
                  std::to_string(parts.instanceIndex) + '|' + parts.counter,
              "web|Disk|C:\\a (b)|d|7|Reads/s");
}

TEST_F(Performance, OneCollectionReadsEachMachineOnce)
{
    for (const auto* path : {"\\\\web01\\Pump(_Total)\\Strokes", "\\Clock\\Ticks", "\\Pump(_Total)\\Strokes"})
        ASSERT_EQ(Add(path), Pdh::Good);
    double value = -1;
    EXPECT_EQ(data.GetDoubleCounterValue(counter, value), Pdh::InvalidData);

    source.calls.clear();
    source.machines[""][0].value = 4;
    EXPECT_EQ(data.CollectQueryData(query), Pdh::Good);
    EXPECT_EQ(source.calls, "read(web01) read() ");
    EXPECT_EQ(Value(), 4);

    source.machines[""].clear();  // the other machine still has values
    EXPECT_EQ(data.CollectQueryData(query), Pdh::Good);
    EXPECT_EQ(data.GetDoubleCounterValue(counter, value), Pdh::InvalidData);
    EXPECT_EQ(value, -1);
    CounterInfo info;
    EXPECT_EQ(data.GetCounterInfo(counter, true, info), Pdh::Good);
    EXPECT_EQ(info.status, Pdh::NoObject);
    EXPECT_EQ(info.type, PdhType::LargeRawCount);
    EXPECT_EQ(info.counterName + info.instance + info.explainText, "Strokes_TotalHow often (so far).");
}

TEST_F(Performance, AMachineThatFailsIsAskedOnceForAllCountersOfAQuery)
{
    const std::pair<std::uint32_t, PdhStatus> cases[] = {
        {Code::ServerUnavailable, Pdh::NoMachine},
        {Code::Timeout, Pdh::NoMachine},
        {0x80070005, Pdh::CannotConnect},
        {Code::InvalidData, Pdh::SenselessData},
    };
    for (const auto& [error, status] : cases) {
        source.errors.clear();
        ASSERT_EQ(data.OpenQuery(query), Pdh::Good);
        ASSERT_EQ(Add("\\Clock\\Ticks"), Pdh::Good);
        source.errors = {{"", error}, {"web01", error}};
        source.calls.clear();
        EXPECT_EQ(data.CollectQueryData(query), status);
        EXPECT_EQ(Value(), -1);
        EXPECT_EQ(Add("\\\\web01\\Clock\\Ticks"), status);
        EXPECT_EQ(Add("\\\\Web01\\Pump(_Total)\\Strokes"), status);
        EXPECT_EQ(source.calls, "read() read(web01) ");
    }
}

TEST_F(Performance, HandlesOfWhatIsGoneAreRefused)
{
    EXPECT_EQ(data.CollectQueryData(query), Pdh::NoData);
    ASSERT_EQ(Add("\\Clock\\Ticks"), Pdh::Good);
    EXPECT_EQ(data.CloseQuery(query), Pdh::Good);
    EXPECT_EQ(source.calls, "read() leave ");
    double value = 0;
    const auto closed = query;
    ASSERT_EQ(data.OpenQuery(query), Pdh::Good);
    EXPECT_NE(query, closed);
    for (const auto handle : {0U, closed, counter, 99U}) {
        EXPECT_EQ(data.CloseQuery(handle), Pdh::InvalidHandle);
        EXPECT_EQ(data.CollectQueryData(handle), Pdh::InvalidHandle);
        EXPECT_EQ(data.GetDoubleCounterValue(handle, value), Pdh::InvalidHandle);
    }
    auto status = Pdh::Good;
    for (int i = 0; i < 1000 && status == Pdh::Good; ++i) status = data.OpenQuery(query);
    EXPECT_EQ(status, Pdh::OutOfMemory);
}

TEST_F(Performance, AReadingMayCloseItsQueryOrUseIt)
{
    PdhStatus inner = 0;
    source.onRead = [&] { inner = Add("\\Clock\\Ticks"); };
    EXPECT_EQ(Add("\\Clock\\Ticks"), Pdh::Good);
    EXPECT_EQ(inner, Pdh::Retry);
    source.onRead = [&] { inner = data.CollectQueryData(query); };
    EXPECT_EQ(data.CollectQueryData(query), Pdh::Good);
    EXPECT_EQ(inner, Pdh::Retry);
    source.onRead = [&] { data.CloseQuery(query); };
    EXPECT_EQ(data.CollectQueryData(query), Pdh::InvalidHandle);
    ASSERT_EQ(data.OpenQuery(query), Pdh::Good);
    EXPECT_EQ(Add("\\Clock\\Ticks"), Pdh::InvalidHandle);
}
