#include "format/TimeSpanText.h"

#include "format/Show.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

std::string Spans(std::initializer_list<double> values)
{
    return Show(values, [](double ticks) { return FormatTimeSpan(ticks, {}); });
}

TEST(TimeSpanText, ShowsHoursMinutesSecondsMilliseconds)
{
    EXPECT_EQ(Spans({0, 9999, 10000, 12345678}), "0:00:00.000 | 0:00:00.000 | 0:00:00.001 | 0:00:01.234");
    EXPECT_EQ(Spans({599999999, 36000000000, 864000000000}), "0:00:59.999 | 1:00:00.000 | 24:00:00.000");
    EXPECT_EQ(Spans({18446744073709551615.0, 0x1p31 * 36e9}), "512409557:36:10.955 | 1:00:00.000");
    EXPECT_EQ(Spans({-12345678, -9999}), "-0:00:01.234 | 0:00:00.000");
    EXPECT_EQ(Spans({INFINITY, -INFINITY, NAN}), "Infinity | -Infinity | NaN");
    EXPECT_LT(FormatTimeSpan(1e308, {}).size(), 24U);
    EXPECT_EQ(FormatTimeSpan(36012345678, CommaLocale()), "1:00:01,234");
}

}  // namespace
