#include "zentrel/Counters.h"

#include "zentrel/LittleEndian.h"

#include <tuple>

namespace zentrel {

namespace {

constexpr std::uint64_t CounterTotals::*kSums[] = {
    &CounterTotals::responsesUncompressed, &CounterTotals::responsesCompressed,
    &CounterTotals::responsesCacheable,    &CounterTotals::cacheHits,
    &CounterTotals::cacheMisses,           &CounterTotals::bytesUncompressed,
    &CounterTotals::bytesCompressed,       &CounterTotals::bytesEquivalent,
    &CounterTotals::compressionTicks,
};
static_assert(std::size(kSums) == std::tuple_size_v<decltype(CounterTotals::carried)>);

// How the totals lie in the store: one number of 8 bytes after the other.
template <class Totals, class Take>
void ForEachStored(Totals& totals, Take&& take)
{
    for (const auto sum : kSums) take(totals.*sum);
    take(totals.sinceTicks);
    for (auto& sum : totals.carried) take(sum);
}

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

void ResetTotals(CounterTotals& totals, std::uint64_t nowTicks)
{
    CounterTotals fresh;
    fresh.sinceTicks = nowTicks;
    for (std::size_t i = 0; i < std::size(kSums); ++i)
        fresh.carried[i] = totals.carried[i] + totals.*kSums[i];
    totals = fresh;
}

CounterTotals LifetimeTotals(const CounterTotals& totals)
{
    auto lifetime = totals;
    for (std::size_t i = 0; i < std::size(kSums); ++i) lifetime.*kSums[i] += totals.carried[i];
    return lifetime;
}

Bytes PackCounters(const CounterTotals& totals)
{
    Bytes packed;
    ForEachStored(totals, [&packed](const std::uint64_t& number) {
        packed.resize(packed.size() + sizeof number);
        StoreLittle(packed.data() + packed.size() - sizeof number, number);
    });
    return packed;
}

CounterTotals UnpackCounters(std::span<const std::byte> bytes)
{
    CounterTotals totals;
    ForEachStored(totals, [&bytes](std::uint64_t& number) {
        if (bytes.size() < sizeof number) return;
        number = LoadLittle<std::uint64_t>(bytes.data());
        bytes = bytes.subspan(sizeof number);
    });
    return totals;
}

}  // namespace zentrel
