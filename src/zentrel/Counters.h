#pragma once

#include "zentrel/Property.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace zentrel {

// What the service counts; every counter that it publishes follows from these. Times are ticks of 100
// nanoseconds. A response counts whether or not it could be answered; one that was refused has no bytes.
struct CounterTotals {
    std::uint64_t responsesUncompressed = 0;
    std::uint64_t responsesCompressed = 0;
    std::uint64_t responsesCacheable = 0;  // could be compressed for this client: a cache hit or a miss
    std::uint64_t cacheHits = 0;
    std::uint64_t cacheMisses = 0;
    std::uint64_t bytesUncompressed = 0;  // bodies sent as they are
    std::uint64_t bytesCompressed = 0;    // bodies sent compressed
    std::uint64_t bytesEquivalent = 0;    // what those would have been uncompressed
    std::uint64_t compressionTicks = 0;   // processor time spent on compression, warming included
    std::uint64_t sinceTicks = 0;         // date of the last reset
    std::uint64_t elapsedTicks = 0;       // from then to the moment of reading; filled in by the reader
    // What the nine sums above had come to at the resets before, in the same order.
    std::array<std::uint64_t, 9> carried{};
};

// Begins all sums anew at a date; what they had come to is carried on.
void ResetTotals(CounterTotals& totals, std::uint64_t nowTicks);

// The totals with sums that no reset ever takes back.
CounterTotals LifetimeTotals(const CounterTotals& totals);

enum class CounterKind { Count, Size, Percent };  // a size is in bytes

struct CounterValue {
    std::string_view name;  // for example "% Compression Processor Time"
    double value = 0;       // a percentage is 37.5, not 0.375
    CounterKind kind = CounterKind::Count;
};

using CounterValues = std::array<CounterValue, 19>;

// The published counters, in their fixed order. Where nothing was counted yet, averages and shares are 0.
CounterValues Derive(const CounterTotals& totals);

// The totals as they are stored. Bytes that are missing read as 0: older programs stored nothing carried.
Bytes PackCounters(const CounterTotals& totals);
CounterTotals UnpackCounters(std::span<const std::byte> bytes);

}  // namespace zentrel
