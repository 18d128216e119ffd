#include "zentrel/MetricsText.h"

namespace zentrel {

namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;

struct Metric {
    const char* name;
    const char* help;
    std::uint64_t CounterTotals::*sum;
};

constexpr Metric kMetrics[] = {
    {"zentrel_responses_uncompressed_total", "Responses sent with their body as it is, refusals included.",
     &CounterTotals::responsesUncompressed},
    {"zentrel_responses_compressed_total", "Responses sent with a compressed body.",
     &CounterTotals::responsesCompressed},
    {"zentrel_responses_cacheable_total", "Responses that the cache was asked for.",
     &CounterTotals::responsesCacheable},
    {"zentrel_cache_hits_total", "Responses sent from the cache.", &CounterTotals::cacheHits},
    {"zentrel_cache_misses_total", "Cacheable responses that the cache did not hold.",
     &CounterTotals::cacheMisses},
    {"zentrel_response_uncompressed_bytes_total", "Bytes of the bodies sent as they are.",
     &CounterTotals::bytesUncompressed},
    {"zentrel_response_compressed_bytes_total", "Bytes of the bodies sent compressed.",
     &CounterTotals::bytesCompressed},
    {"zentrel_response_equivalent_bytes_total",
     "Bytes that the bodies sent compressed would have had uncompressed.", &CounterTotals::bytesEquivalent},
    {"zentrel_compression_cpu_seconds_total", "Processor time spent on compression.",
     &CounterTotals::compressionTicks},
};

// Ticks in seconds, all seven digits.
std::string Seconds(std::uint64_t ticks)
{
    const auto fraction = std::to_string(kTicksPerSecond + ticks % kTicksPerSecond);
    return std::to_string(ticks / kTicksPerSecond) + '.' + fraction.substr(1);
}

}  // namespace

std::string MetricsText(const CounterTotals& totals)
{
    const auto lifetime = LifetimeTotals(totals);
    std::string text;
    for (const auto& metric : kMetrics) {
        const std::string name = metric.name;
        const auto sum = lifetime.*metric.sum;
        text += "# HELP " + name + ' ' + metric.help + "\n# TYPE " + name + " counter\n" + name + ' ';
        text += metric.sum == &CounterTotals::compressionTicks ? Seconds(sum) : std::to_string(sum);
        text += '\n';
    }
    return text;
}

}  // namespace zentrel
