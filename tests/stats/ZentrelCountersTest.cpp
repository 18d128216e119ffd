#include "stats/ZentrelCounters.h"

#include "stats/CounterList.h"
#include "stats/ScriptedCounters.h"
#include "stats/modPerfCntr.h"
#include "support/CountedRequests.h"
#include "support/LyingServer.h"
#include "zentrel/EmbeddedTransport.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class ZentrelSource : public testing::Test {
protected:
    void Wait(std::chrono::milliseconds time) { now += time; }
    std::uint32_t Read(const std::string& machine = "web01")
    {
        hosts->calls.clear();
        const auto read = source.Read(machine);
        count = read ? read->size() : 0;
        return read ? 0 : read.error().Plain();
    }

    std::shared_ptr<ScriptedCounters> hosts = std::make_shared<ScriptedCounters>();
    ZentrelCounters::Clock::time_point now{};
    ZentrelCounters source{hosts, [this] { return now; }};
    std::size_t count = 0;
};

}  // namespace

// The figures are counted by hand from: 30 plain responses of 1000 bytes in all; 90 compressed ones that need
// 500 bytes instead of 2000; 96 look-ups of which 72 hit; 5 of 40 ticks spent on compression.
TEST_F(ZentrelSource, AllCountersOfTheListArriveInOneRoundTrip)
{
    hosts->totals = {30, 90, 96, 72, 24, 1000, 500, 2000, 5, 1, 40};
    const struct {
        const char* label;
        std::uint32_t type;
        double value;
    } expected[] = {
        {"Compression CPU Time", PdhType::Timer100Ns, 12.5},
        {"Bytes Uncompressed", PdhType::LargeRawCount, 1000},
        {"Bytes Compressed", PdhType::LargeRawCount, 500},
        {"Bytes Uncompressed Equiv", PdhType::LargeRawCount, 2000},
        {"Bytes Total Equiv", PdhType::LargeRawCount, 3000},
        {"Bytes Total", PdhType::LargeRawCount, 1500},
        {"Bandwidth Savings", PdhType::LargeRawCount, 1500},
        {"Average Compression Ratio", PdhType::LargeRawFraction, 25},
        {"Average Reduction", PdhType::LargeRawFraction, 75},
        {"Responses Uncompressed", PdhType::RawCount, 30},
        {"Responses Compressed", PdhType::RawCount, 90},
        {"% Responses Compressed", PdhType::RawFraction, 75},
        {"Responses Cacheable", PdhType::RawCount, 96},
        {"% Responses Cacheable", PdhType::RawFraction, 80},
        {"% Responses From Cache", PdhType::RawFraction, 60},
        {"Responses Total", PdhType::RawCount, 120},
        {"Cache Misses", PdhType::RawCount, 24},
        {"Cache Hits", PdhType::RawCount, 72},
        {"% Cache Hits", PdhType::RawFraction, 75},
    };
    PerformanceData data(source);
    modPerfCntr counters(data);
    ASSERT_TRUE(counters.OpenQuery());
    for (const auto& row : MakeCounterList())
        ASSERT_TRUE(counters.AddCounter(row.path, row.label)) << row.path;
    EXPECT_EQ(hosts->calls, "connect() read ");
    hosts->calls.clear();
    ASSERT_TRUE(counters.CollectData());
    EXPECT_EQ(hosts->calls, "read ");

    ASSERT_EQ(counters.UpperBound(), 18);
    for (int i = 0; i <= counters.UpperBound(); ++i) {
        double value = -1;
        ASSERT_TRUE(counters.GetCounterValue(i, value));
        const auto& record = counters.Counters()[static_cast<std::size_t>(i)];
        EXPECT_EQ(record.label, expected[i].label);
        EXPECT_EQ(record.info.type, expected[i].type) << record.label;
        EXPECT_DOUBLE_EQ(value, expected[i].value) << record.label;
        EXPECT_GT(record.info.explainText.size(), 50U) << record.label;
    }
}

// Requests, responder, store, session, published counters, query: what comes out is what was sent.
TEST_F(CountedRequests, AreWhatTheQueryReads)
{
    PutFiles();
    ZentrelCounters source(std::make_shared<zentrel::EmbeddedTransport>(service, "HERE"));
    PerformanceData data(source);
    modPerfCntr counters(data);
    ASSERT_TRUE(counters.OpenQuery());
    for (const auto& row : MakeCounterList()) ASSERT_TRUE(counters.AddCounter(row.path, row.label));
    for (int round = 0; round < 3; ++round) {
        if (round == 2) Reset();
        Send(150);
        ASSERT_TRUE(counters.CollectData());
        double busy = 0;
        ASSERT_TRUE(counters.GetCounterValue(0, busy));
        EXPECT_TRUE(busy >= 0 && busy <= 100) << busy;
        const auto expected = shown.Counters(busy);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            double value = -1;
            ASSERT_TRUE(counters.GetCounterValue(static_cast<int>(i), value));
            EXPECT_DOUBLE_EQ(value, expected[i]) << counters.Counters()[i].info.counterName;
        }
    }
}

TEST_F(ZentrelSource, TellsWhoPublishesNothingFromWhoCannotBeRead)
{
    const struct {
        std::string machine;
        std::uint32_t error, outcome;
    } cases[] = {
        {"", Code::ServerUnavailable, 0},
        {"", Code::AccessDenied, Code::AccessDenied},
        {"web01", Code::UnknownInterface, 0},
        {"web01", Code::ServerUnavailable, 1722},
    };
    for (const auto& one : cases) {
        hosts->connectError = one.error;
        EXPECT_EQ(Read(one.machine), one.outcome) << one.machine << one.error;
        EXPECT_EQ(count, 0U);
    }
}

TEST_F(ZentrelSource, KeepsASessionThatIsRefusedAndDropsOneThatIsLost)
{
    hosts->readError = Code::AccessDenied;  // its RemoteRegistry is stopped
    EXPECT_EQ(Read(), 5U);
    hosts->readError = 0;
    EXPECT_EQ(Read(), 0U);
    EXPECT_EQ(hosts->calls, "read ");
    hosts->readError = Code::ServerUnavailable;
    EXPECT_EQ(Read(), 1722U);
    hosts->readError = 0;
    EXPECT_EQ(Read(), 0U);
    EXPECT_EQ(hosts->calls, "connect(web01) read ");
    EXPECT_EQ(count, 19U);
}

TEST_F(ZentrelSource, AHostThatHangsIsLeftAloneForAWhile)
{
    hosts->onConnect = [this] { Wait(900ms); };
    EXPECT_EQ(Read(), 0U);  // the first connection may take long
    hosts->onRead = [this] { Wait(500ms); };
    hosts->readError = Code::Timeout;
    EXPECT_EQ(Read(), Code::Timeout);
    EXPECT_EQ(Read(), Code::Timeout);
    EXPECT_EQ(hosts->calls, "");
    EXPECT_EQ(Read("web02"), Code::Timeout);  // others are not meant
    EXPECT_EQ(hosts->calls, "connect(web02) read ");
    Wait(10s);
    hosts->readError = 0;
    EXPECT_EQ(Read(), Code::IoPending);  // one thing at a time
    EXPECT_EQ(hosts->calls, "connect(web01) ");
    EXPECT_EQ(Read(), 0U);
    EXPECT_EQ(hosts->calls, "read ");
}

TEST_F(ZentrelSource, MayBeLeftWhileItWaits)
{
    hosts->onConnect = hosts->onRead = [this] { source.Leave(); };
    EXPECT_EQ(Read(), 0U);
    EXPECT_EQ(count, 19U);
    EXPECT_EQ(Read(), 0U);
    EXPECT_EQ(hosts->calls, "connect(web01) read ");
}

TEST(ZentrelCounters, ARefreshFromAHostThatHangsEndsWithinASecond)
{
    std::atomic<bool> hangs = false;
    LyingServer server([&hangs](const std::string& call, const std::string&) -> std::optional<Answer> {
        if (call == "ReadCounters" && hangs) return Answer::Never();
        return std::nullopt;
    });
    zentrel::RemoteTarget target;
    target.socket = server.Socket();
    zentrel::Deadlines deadlines;
    deadlines.connect = ZentrelCounters::kConnecting;
    deadlines.read = ZentrelCounters::kReading;
    ZentrelCounters source(std::make_shared<zentrel::RemoteTransport>(target, nullptr, deadlines));
    ASSERT_TRUE(source.Read("web01"));
    const auto calls = server.Calls();
    ASSERT_TRUE(source.Read("web01"));
    EXPECT_EQ(server.Calls(), calls + 1);
    hangs = true;
    const auto begun = ZentrelCounters::Clock::now();
    for (int tick = 0; tick < 5; ++tick) EXPECT_FALSE(source.Read("web01"));
    EXPECT_LT(ZentrelCounters::Clock::now() - begun, 1s);
}
