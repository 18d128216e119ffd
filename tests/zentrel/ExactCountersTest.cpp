#include "support/CountedRequests.h"
#include "zentrel/MetricsText.h"

#include <sstream>
#include <thread>

using namespace zentrel;

namespace {

class ExactCounters : public CountedRequests {
protected:
    static double Seconds(std::uint64_t ticks) { return static_cast<double>(ticks) / 1e7; }

    // All 19, exactly. Processor time: what was spent of the time that has passed.
    void ExpectShown()
    {
        const auto earliest = TicksNow();
        const auto totals = *service->Counters();
        const auto latest = TicksNow();
        EXPECT_GE(totals.elapsedTicks, earliest - totals.sinceTicks);
        EXPECT_LE(totals.elapsedTicks, latest - totals.sinceTicks);
        EXPECT_LE(Seconds(totals.compressionTicks), shown.cpuSeconds);
        EXPECT_EQ(totals.compressionTicks != 0, shown.misses != 0);
        const auto values = Derive(totals);
        const auto expected =
            shown.Counters(100 * Seconds(totals.compressionTicks) / Seconds(totals.elapsedTicks));
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_DOUBLE_EQ(values[i].value, expected[i]) << values[i].name;
    }

    // What scrapers are told, name by name.
    std::map<std::string, std::string> Exported() const
    {
        std::istringstream text(MetricsText(*service->Counters()));
        std::map<std::string, std::string> values;
        std::string help, type;
        while (std::getline(text, help)) {
            std::string name, value;
            EXPECT_TRUE(std::getline(text, type) && text >> name >> value && text.get() == '\n');
            EXPECT_TRUE(help.starts_with("# HELP " + name + ' ')) << help;
            EXPECT_EQ(type, "# TYPE " + name + " counter");
            EXPECT_TRUE(name.ends_with("_total")) << name;
            values[name.substr(0, name.size() - 6)] = value;
        }
        return values;
    }

    void ExpectExported()
    {
        const auto values = Exported();
        const std::pair<const char*, std::uint64_t> expected[] = {
            {"zentrel_responses_uncompressed", lifetime.plain},
            {"zentrel_responses_compressed", lifetime.compressed},
            {"zentrel_responses_cacheable", lifetime.cacheable},
            {"zentrel_cache_hits", lifetime.hits},
            {"zentrel_cache_misses", lifetime.misses},
            {"zentrel_response_uncompressed_bytes", lifetime.plainBytes},
            {"zentrel_response_compressed_bytes", lifetime.compressedBytes},
            {"zentrel_response_equivalent_bytes", lifetime.unpackedBytes},
        };
        EXPECT_EQ(values.size(), std::size(expected) + 1);
        for (const auto& [name, value] : expected) EXPECT_EQ(values.at(name), std::to_string(value)) << name;
        const auto seconds = std::stod(values.at("zentrel_compression_cpu_seconds"));
        EXPECT_GE(seconds, m_lastSeconds);
        EXPECT_LE(seconds, lifetime.cpuSeconds);
        m_lastSeconds = seconds;
    }

    double m_lastSeconds = 0;
};

TEST_F(ExactCounters, AllNineteenAreWhatTheResponsesSay)
{
    PutFiles();
    ExpectShown();
    for (int round = 0; round < 5; ++round) {
        Send(100);
        ExpectShown();
    }
    EXPECT_GT(shown.hits, 100U);
    EXPECT_GT(shown.misses, 10U);
}

TEST_F(ExactCounters, AResetTakesNothingFromWhatIsExported)
{
    PutFiles();
    Send(200);
    Reset();
    ExpectShown();
    ExpectExported();
    Send(100);
    Reset();
    Send(50);
    ExpectShown();
    ExpectExported();
    Reopen(Service::Role::Writer);
    ExpectShown();
    ExpectExported();
    Send(50);
    ExpectExported();
    Reopen(Service::Role::Viewer);  // resets without being the writer
    Reset();
    ExpectShown();
    ExpectExported();
}

TEST_F(ExactCounters, AKillTakesNoMoreThanTheLastFifthOfASecond)
{
    PutFiles();
    Send(20);
    Reset();
    responder.reset();
    service.reset();
    EXPECT_EQ(InChild([this] {
                  Reopen(Service::Role::Writer);
                  Send(100);
                  std::this_thread::sleep_for(std::chrono::milliseconds(250));
                  Send(1);  // which stores all that there is
                  raise(SIGKILL);
                  return 0;
              }),
              -SIGKILL);
    Reopen(Service::Role::Writer);
    const auto totals = *service->Counters();
    EXPECT_EQ(totals.responsesCompressed + totals.responsesUncompressed, 101U);
    const auto kept = LifetimeTotals(totals);
    EXPECT_EQ(kept.responsesCompressed + kept.responsesUncompressed, 121U);
}

}  // namespace
