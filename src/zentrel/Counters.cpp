#include "zentrel/Counters.h"

#include "zentrel/LittleEndian.h"

namespace zentrel {

namespace {

// How the totals lie in the store: one number of 8 bytes after the other.
constexpr std::uint64_t CounterTotals::*kStored[] = {
    &CounterTotals::responsesUncompressed, &CounterTotals::responsesCompressed,
    &CounterTotals::responsesCacheable,    &CounterTotals::cacheHits,
    &CounterTotals::cacheMisses,           &CounterTotals::bytesUncompressed,
    &CounterTotals::bytesCompressed,       &CounterTotals::bytesEquivalent,
    &CounterTotals::compressionTicks,      &CounterTotals::sinceTicks,
};

double Share(double part, double whole)
{
    return whole > 0 ? 100 * part / whole : 0;
}

}  // namespace

CounterValues Derive(const CounterTotals& totals)
{
    const auto number = [](std::uint64_t count) { return static_cast<double>(count); };
    const auto uncompressed = number(totals.bytesUncompressed);
    const auto compressed = number(totals.bytesCompressed);
    const auto equivalent = number(totals.bytesEquivalent);
    const auto sentCompressed = number(totals.responsesCompressed);
    const auto responses = number(totals.responsesUncompressed) + sentCompressed;
    const auto cacheable = number(totals.responsesCacheable);
    const auto hits = number(totals.cacheHits);
    const auto misses = number(totals.cacheMisses);
    const auto ratio = Share(compressed, equivalent);
    const auto processorTime = Share(number(totals.compressionTicks), number(totals.elapsedTicks));
    using enum CounterKind;
    return {{
        {"% Compression Processor Time", processorTime, Percent},
        {"Response Bytes Uncompressed", uncompressed, Size},
        {"Response Bytes Compressed", compressed, Size},
        {"Response Bytes Uncompressed Equivalent", equivalent, Size},
        {"Response Bytes Total Equivalent", uncompressed + equivalent, Size},
        {"Response Bytes Total", uncompressed + compressed, Size},
        {"Bandwidth Savings", equivalent - compressed, Size},
        {"Average Compression Ratio", ratio, Percent},
        {"Average Reduction", equivalent > 0 ? 100 - ratio : 0, Percent},
        {"Responses Sent Uncompressed", responses - sentCompressed, Count},
        {"Responses Sent Compressed", sentCompressed, Count},
        {"% Responses Sent Compressed", Share(sentCompressed, responses), Percent},
        {"Responses Cacheable", cacheable, Count},
        {"% Responses Cacheable", Share(cacheable, responses), Percent},
        {"% Responses From Cache", Share(hits, responses), Percent},
        {"Responses Sent Total", responses, Count},
        {"Cache Misses", misses, Count},
        {"Cache Hits", hits, Count},
        {"% Cache Hits", Share(hits, hits + misses), Percent},
    }};
}

Bytes PackCounters(const CounterTotals& totals)
{
    Bytes packed(std::size(kStored) * sizeof(std::uint64_t));
    auto* to = packed.data();
    for (const auto member : kStored) {
        StoreLittle(to, totals.*member);
        to += sizeof(std::uint64_t);
    }
    return packed;
}

CounterTotals UnpackCounters(std::span<const std::byte> bytes)
{
    CounterTotals totals;
    for (const auto member : kStored) {
        if (bytes.size() < sizeof(std::uint64_t)) break;
        totals.*member = LoadLittle<std::uint64_t>(bytes.data());
        bytes = bytes.subspan(sizeof(std::uint64_t));
    }
    return totals;
}

}  // namespace zentrel
