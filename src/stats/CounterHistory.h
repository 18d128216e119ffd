#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

// When a sample was taken, in milliseconds.
struct SampleTime {
    std::int64_t tick = 0;  // of a clock that never goes back
    std::int64_t utc = 0;   // since 1970, by the system's clock, which may be set

    static SampleTime Now();
};

struct CounterSample {
    SampleTime time;
    bool isAfterBreak = false;   // nothing is known of the time before: no line leads here
    std::vector<double> values;  // by counter; NaN where there is none
};

struct CounterRange {
    double least = 0, most = 0, average = 0;
};

// The samples of the last ten minutes, the oldest first. Values that are no finite numbers count as gaps.
class CounterHistory {
public:
    static constexpr std::int64_t kSpan = 600'000;  // milliseconds, as all times here
    static constexpr std::size_t kMostSamples = 601;
    static constexpr std::int64_t kIntervals[] = {1'000, 2'000, 5'000, 10'000, 30'000};

    explicit CounterHistory(std::size_t counters) : m_counters(counters) {}

    // Forgets what is older than ten minutes by then. Missing values are gaps, further ones are left out.
    void Add(SampleTime time, std::vector<double> values);
    // The next sample does not continue the line of the ones before.
    void Break() { m_isBroken = true; }
    void Clear();
    // Keeps of denser samples so many as would have been taken at this interval; the newest stays.
    void Thin(std::int64_t interval);

    std::size_t Counters() const { return m_counters; }
    const std::deque<CounterSample>& Samples() const { return m_samples; }
    bool IsEmpty() const { return m_samples.empty(); }
    std::optional<double> Last(std::size_t counter) const;  // of the newest sample
    std::optional<CounterRange> Range(std::size_t counter) const;
    std::size_t Nearest(std::int64_t tick) const;  // index of the sample taken next to then; 0 without any

private:
    const std::size_t m_counters;
    std::deque<CounterSample> m_samples;
    bool m_isBroken = false;
};
