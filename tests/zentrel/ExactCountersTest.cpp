#include "zentrel/MetricsText.h"
#include "zentrel/ServiceRig.h"

#include <ctime>
#include <random>
#include <sstream>
#include <thread>

using namespace zentrel;

namespace {

// Counts, without the service's own arithmetic.
struct Tally {
    std::uint64_t plain = 0, compressed = 0, cacheable = 0, hits = 0, misses = 0;
    std::uint64_t plainBytes = 0, compressedBytes = 0, unpackedBytes = 0;
    double cpuSeconds = 0;  // of this process meanwhile
};

// What is counted: under which name it is exported, here, and by the service.
constexpr struct {
    const char* name;
    std::uint64_t Tally::*count;
    std::uint64_t CounterTotals::*total;
} kSums[] = {
    {"zentrel_responses_uncompressed", &Tally::plain, &CounterTotals::responsesUncompressed},
    {"zentrel_responses_compressed", &Tally::compressed, &CounterTotals::responsesCompressed},
    {"zentrel_responses_cacheable", &Tally::cacheable, &CounterTotals::responsesCacheable},
    {"zentrel_cache_hits", &Tally::hits, &CounterTotals::cacheHits},
    {"zentrel_cache_misses", &Tally::misses, &CounterTotals::cacheMisses},
    {"zentrel_response_uncompressed_bytes", &Tally::plainBytes, &CounterTotals::bytesUncompressed},
    {"zentrel_response_compressed_bytes", &Tally::compressedBytes, &CounterTotals::bytesCompressed},
    {"zentrel_response_equivalent_bytes", &Tally::unpackedBytes, &CounterTotals::bytesEquivalent},
};

// And whether a compressed body is looked for, when the client takes one.
constexpr std::pair<const char*, bool> kUrls[] = {
    {"/page0.html", true}, {"/page1.html", true},     {"/page2.html", true},     {"/page3.html", true},
    {"/page4.html", true}, {"/page4.html?q=1", true}, {"/page4.html?q=2", true}, {"/noise.txt", true},
    {"/photo.jpg", false}, {"/small.txt", false},     {"/nothing.html", false},  {"/../page0.html", false},
};

// Sends real requests through the responder, and counts beside it what the counters should say: from the
// requests, and from the bodies that come back.
class ExactCounters : public ServiceRig {
protected:
    void PutFiles()
    {
        Start();
        for (int i = 0; i < 5; ++i)
            WriteFile("page" + std::to_string(i) + ".html",
                      Page(300 + 9'000 * static_cast<std::size_t>(i), i));
        std::string noise(4'000, '\0');
        for (auto& c : noise) c = static_cast<char>(m_random());
        WriteFile("noise.txt", noise);  // grows when it is compressed
        WriteFile("photo.jpg", noise);
        WriteFile("small.txt", "small");
    }

    void Send(int requests)
    {
        const auto begun = ProcessorSeconds();
        for (int i = 0; i < requests; ++i) SendOne(m_random() % std::size(kUrls), m_random() % 4);
        for (auto* tally : {&shown, &lifetime}) tally->cpuSeconds += ProcessorSeconds() - begun;
    }

    void Reset()
    {
        ASSERT_TRUE(service->ResetCounters());
        shown = {};
    }

    void ExpectShown()
    {
        const auto earliest = TicksNow();
        const auto totals = *service->Counters();
        const auto latest = TicksNow();
        EXPECT_GE(totals.elapsedTicks, earliest - totals.sinceTicks);
        EXPECT_LE(totals.elapsedTicks, latest - totals.sinceTicks);
        EXPECT_LE(static_cast<double>(totals.compressionTicks) / 1e7, shown.cpuSeconds);
        EXPECT_EQ(totals.compressionTicks != 0, shown.misses != 0);
        for (const auto& sum : kSums) EXPECT_EQ(totals.*sum.total, shown.*sum.count) << sum.name;
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
        EXPECT_EQ(values.size(), std::size(kSums) + 1);
        for (const auto& sum : kSums)
            EXPECT_EQ(values.at(sum.name), std::to_string(lifetime.*sum.count)) << sum.name;
        const auto seconds = std::stod(values.at("zentrel_compression_cpu_seconds"));
        EXPECT_GE(seconds, m_lastSeconds);
        EXPECT_LE(seconds, lifetime.cpuSeconds);
        m_lastSeconds = seconds;
    }

    Tally shown;     // since the last reset
    Tally lifetime;  // since ever

private:
    static double ProcessorSeconds()
    {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    }

    void SendOne(std::size_t url, unsigned accepts)
    {
        const auto response = Get(kUrls[url].first, (accepts & 1U) != 0, (accepts & 2U) != 0);
        const bool isCacheable = kUrls[url].second && accepts != 0;
        const auto unpacked = response.encoding ? Unpacked(response).size() : 0;
        for (auto* tally : {&shown, &lifetime}) {
            ++(response.encoding ? tally->compressed : tally->plain);
            (response.encoding ? tally->compressedBytes : tally->plainBytes) += response.body.size();
            tally->unpackedBytes += unpacked;
            tally->cacheable += isCacheable ? 1 : 0;
            tally->hits += response.fromCache ? 1 : 0;
            tally->misses += isCacheable && !response.fromCache ? 1 : 0;
        }
    }

    double m_lastSeconds = 0;
    std::mt19937 m_random{20261123};
};

TEST_F(ExactCounters, AResetTakesNothingFromWhatIsExported)
{
    PutFiles();
    ExpectShown();
    Send(200);
    ExpectShown();
    EXPECT_GT(shown.hits, 50U);
    EXPECT_GT(shown.misses, 10U);
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
    Close();
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
