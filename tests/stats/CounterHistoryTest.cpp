#include "stats/CounterHistory.h"

#include "platform/PdhStatus.h"
#include "stats/CounterChartScale.h"
#include "stats/CounterCsv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

// Ticks in seconds; those where a line begins stand behind a "|".
std::string Ticks(const CounterHistory& history)
{
    std::string text;
    for (const auto& sample : history.Samples())
        text += (sample.isAfterBreak ? "|" : " ") + std::to_string(sample.time.tick / 1000);
    return text;
}

void Fill(CounterHistory& history, int first, int last, int step = 1)
{
    for (int second = first; second <= last; second += step)
        history.Add({second * std::int64_t{1000} + second % 7, 0}, {static_cast<double>(second)});
}

}  // namespace

TEST(CounterHistory, KeepsTenMinutesAndNoMoreSamplesThanThat)
{
    CounterHistory history(1);
    for (int i = 0; i <= 700; ++i) history.Add({i * 1000, 0}, {1.0 * i});
    EXPECT_EQ(history.Samples().size(), CounterHistory::kMostSamples);
    EXPECT_EQ(history.Samples().front().time.tick, 100'000);
    for (int i = 0; i < 2000; ++i) history.Add({700'000 + i, 0}, {});
    EXPECT_EQ(history.Samples().size(), CounterHistory::kMostSamples) << "however dense they are";
    history.Add({2'000'000, 0}, {5});
    EXPECT_EQ(Ticks(history), " 2000") << "after a long pause";
}

TEST(CounterHistory, ThinsToALongerIntervalAndKeepsBreaks)
{
    CounterHistory history(1);
    Fill(history, 0, 12);
    history.Break();
    Fill(history, 13, 20);
    history.Thin(5000);
    EXPECT_EQ(Ticks(history), "|0 5 10|15 20");
    history.Thin(1000);
    Fill(history, 21, 22);
    EXPECT_EQ(Ticks(history), "|0 5 10|15 20 21 22") << "what is gone does not come back";
}

TEST(CounterChartScale, StepsAreRoundAndHoldAllValues)
{
    const FormatLocale locale;
    const struct {
        double least, most;
        std::uint32_t type;
        double low, high, step;
        const char *lowText, *highText;
    } cases[] = {
        {0, 0, PdhType::RawCount, 0, 1, 1, "0", "1"},
        {-3, 4, PdhType::RawCount, -5, 5, 5, "-5", "5"},
        {1e15, 1e15 + 4, PdhType::RawCount, 0, 1.5e15, 5e14, "0", "1500000000000000"},
        {0, 0.004, PdhType::Timer100Ns, 0, 0.01, 0.01, "0%", "0.01%"},
        {2001000000, 2001900000, PdhType::LargeRawCount, 2000896000, 2001920000, 512000, "1954000 KiB",
         "1955000 KiB"},
        {700 * 1024, 1250 * 1024, PdhType::LargeRawCount, 0.6 * 1048576, 1.4 * 1048576, 0.2 * 1048576,
         "0.6 MiB", "1.4 MiB"},
        {-900 * 1024, 900 * 1024, PdhType::LargeRawCount, -1024000, 1024000, 1024000, "-1000 KiB",
         "1000 KiB"},
    };
    for (const auto& one : cases) {
        const auto scale = ScaleFor(one.least, one.most, one.type);
        EXPECT_DOUBLE_EQ(scale.low, one.low) << one.most;
        EXPECT_DOUBLE_EQ(scale.high, one.high) << one.most;
        EXPECT_DOUBLE_EQ(scale.step, one.step) << one.most;
        EXPECT_EQ(ScaleLabel(scale.low, scale, one.type, locale), one.lowText);
        EXPECT_EQ(ScaleLabel(scale.high, scale, one.type, locale), one.highText);
    }
    const double extremes[] = {0, 1, -1, 1e15, 1e-300, -1e308, 1e308, kInfinite, -kInfinite, kNone};
    for (const double least : extremes)
        for (const double most : extremes)
            for (const auto type : {PdhType::RawCount, PdhType::LargeRawCount, PdhType::RawFraction}) {
                const auto scale = ScaleFor(least, most, type);
                EXPECT_TRUE(std::isfinite(scale.low) && std::isfinite(scale.high) && scale.step > 0);
                EXPECT_GT(scale.high, scale.low) << least << " " << most;
                EXPECT_LE((scale.high - scale.low) / scale.step, 6) << least << " " << most;
            }
}

TEST(CounterCsv, WritesEveryDigitAndNoFormulas)
{
    setenv("TZ", "XYZ-05:30", 1);
    tzset();
    CounterHistory history(3);
    history.Add({0, 1'700'000'000'123}, {0.1, kNone, -1e15});
    history.Add({1, -1}, {1.0 / 3, 5, kNone});
    const std::string names[] = {"=SUM(A1),\"x\"", "% Hits", "-2"};
    EXPECT_EQ(CountersAsCsv(history, names), "Time,\"'=SUM(A1),\"\"x\"\"\",% Hits,'-2\r\n"
                                             "2023-11-15T03:43:20.123+05:30,0.1,,-1e+15\r\n"
                                             "1970-01-01T05:29:59.999+05:30,0.3333333333333333,5,\r\n");
    unsetenv("TZ");
    tzset();
}
