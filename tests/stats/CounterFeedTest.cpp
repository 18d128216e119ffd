#include "stats/CounterFeed.h"

#include "support/ScriptedSource.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

PublishedCounter Counter(std::string_view name, double value, std::uint32_t type = PdhType::RawCount)
{
    return {"Zentrel", "_Total", name, type, value, "explains it"};
}

class CounterFeedTest : public testing::Test {
protected:
    CounterFeedTest()
    {
        source.machines["web01"] = {Counter("Cache Hits", 5), Counter("Cache Misses", 7),
                                    Counter("% Cache Hits", 37.5, PdhType::RawFraction)};
        feed.SetServer(CounterServer{"web01", false});
    }

    CounterReading Read()
    {
        source.calls.clear();
        return feed.Read();
    }
    static std::string Texts(const CounterReading& reading)
    {
        std::string text;
        for (const double value : reading.values)
            text += std::isnan(value) ? "- " : std::to_string(int(value)) + " ";
        return text;
    }

    ScriptedSource source;
    PerformanceData library{source};
    CounterFeed feed{library,
                     {{"\\Zentrel(_Total)\\Cache Misses", "Misses"},
                      {"\\Zentrel(_Total)\\Gone", ""},
                      {"\\Zentrel(_Total)\\% Cache Hits", ""}}};
};

}  // namespace

TEST_F(CounterFeedTest, BringsTheListsCountersInOneRoundTrip)
{
    const auto reading = Read();
    EXPECT_EQ(Texts(reading), "7 - 37 ") << "by row, whatever is missing between them";
    EXPECT_TRUE(reading.trouble.starts_with("At least one of the performance counters is unavailable."));
    EXPECT_EQ(Texts(Read()), "7 - 37 ");
    EXPECT_EQ(source.calls, "read(web01) ");
    feed.Close();
    EXPECT_EQ(source.calls, "read(web01) leave ") << "a closed feed holds nothing";
}

// Whatever messages do at each wait of a first reading: opening, adding, collecting.
TEST_F(CounterFeedTest, SurvivesWhatHappensWhileItWaits)
{
    for (int at = 1; at <= 2; ++at) {
        for (const bool isClosed : {true, false}) {
            feed.SetServer(CounterServer{"web01", false});
            int waits = 0;
            source.onRead = [&] {
                if (++waits != at) return;
                isClosed ? feed.Close() : feed.SetServer(CounterServer{"web02", false});
            };
            EXPECT_FALSE(Read().isCurrent) << at << isClosed;
        }
    }
    source.onRead = [] {};
    source.machines["web02"] = source.machines["web01"];
    EXPECT_EQ(Texts(Read()), "7 - 37 ");
    EXPECT_EQ(source.calls, "read(web02) read(web02) ");
}
