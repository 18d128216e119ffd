#include "stats/CounterHistory.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kPunctual = 0.9;  // a sample that came this part of the interval after another was in time

template <class Clock>
std::int64_t Milliseconds()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now().time_since_epoch()).count();
}

}  // namespace

SampleTime SampleTime::Now()
{
    return {Milliseconds<std::chrono::steady_clock>(), Milliseconds<std::chrono::system_clock>()};
}

void CounterHistory::Add(SampleTime time, std::vector<double> values)
{
    values.resize(m_counters, kNone);
    for (auto& value : values)
        if (!std::isfinite(value)) value = kNone;
    m_samples.push_back({time, m_isBroken || m_samples.empty(), std::move(values)});
    m_isBroken = false;
    while (m_samples.front().time.tick < time.tick - kSpan || m_samples.size() > kMostSamples)
        m_samples.pop_front();
}

void CounterHistory::Clear()
{
    m_samples.clear();
    m_isBroken = false;
}

// From the newest backwards. A break before a sample that goes lies before the next one that stays.
void CounterHistory::Thin(std::int64_t interval)
{
    std::deque<CounterSample> kept;
    const auto least = static_cast<std::int64_t>(kPunctual * static_cast<double>(interval));
    for (auto left = m_samples.size(); left > 0; --left) {
        auto& sample = m_samples[left - 1];
        const bool stays = kept.empty() || kept.front().time.tick - sample.time.tick >= least;
        if (!stays) {
            kept.front().isAfterBreak |= sample.isAfterBreak;
            continue;
        }
        kept.push_front(std::move(sample));
    }
    m_samples = std::move(kept);
}

std::optional<double> CounterHistory::Last(std::size_t counter) const
{
    if (m_samples.empty() || std::isnan(m_samples.back().values[counter])) return std::nullopt;
    return m_samples.back().values[counter];
}

std::optional<CounterRange> CounterHistory::Range(std::size_t counter) const
{
    std::optional<CounterRange> range;
    double count = 0;
    for (const auto& sample : m_samples) {
        const double value = sample.values[counter];
        if (std::isnan(value)) continue;
        if (!range) range = {value, value, 0};
        range->least = std::min(range->least, value);
        range->most = std::max(range->most, value);
        range->average += (value - range->average) / ++count;  // no sum that could overflow
    }
    return range;
}

std::size_t CounterHistory::Nearest(std::int64_t tick) const
{
    const auto after =
        std::lower_bound(m_samples.begin(), m_samples.end(), tick,
                         [](const auto& sample, auto then) { return sample.time.tick < then; });
    const auto index = static_cast<std::size_t>(std::distance(m_samples.begin(), after));
    if (index == 0) return 0;
    if (index == m_samples.size()) return index - 1;
    const auto before = tick - m_samples[index - 1].time.tick;
    return m_samples[index].time.tick - tick < before ? index : index - 1;
}
