#include "format/FormatValue.h"

#include "format/Show.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Text = std::string;
using Long = std::int64_t;

std::string In(std::string_view kind, std::initializer_list<FormatInput> values,
               const FormatLocale& locale = {})
{
    return Show(values, [&](const FormatInput& value) { return FormatValue(value, kind, locale); });
}

TEST(FormatValue, ShowsFloatingPointByKindAndZeroAsNothing)
{
    EXPECT_EQ(In("", {0.0, 3.5, 1.125F}), "0.00 | 3.50 | 1.13");
    EXPECT_EQ(In("Large", {0.0, 1536.0F}), "0 | 1.50 KiB");
    EXPECT_EQ(In("Percent", {0.25, 0.4567F, 0.0F, -0.0, double{NAN}}), "25.00% | 45.67% |  |  | NaN");
    EXPECT_EQ(In("TimeSpan", {12345678.0, 10000.0F, 0.0}), "0:00:01.234 | 0:00:00.001 | ");
    EXPECT_EQ(In("0.##%", {0.45F, 0.0F}), "45% | 0%");
    EXPECT_EQ(In("Short Time", {36585.25}), "06:00");
    EXPECT_EQ(In("percent", {0.25}), "0.25");  // kinds are exact words; this is a picture without a digit
}

TEST(FormatValue, ShowsIntegersPlainOrInAPicture)
{
    EXPECT_EQ(In("", {7, Long{9007199254740993}}), "7 | 9007199254740993");
    EXPECT_EQ(In("Large", {0, 2048}), "0 | 2 KiB");
    EXPECT_EQ(In("Percent", {0, Long{1}}), "0.00% | 100.00%");
    EXPECT_EQ(In("Fixed", {0}), "0.00");
}

TEST(FormatValue, ShowsTextsAsTheNumberTheyHold)
{
    EXPECT_EQ(In("", {Text("0.50"), Text("abc"), {}}), "0.50 | abc | ");
    EXPECT_EQ(In("Large", {Text("2048"), {}, Text("abc")}), "2 KiB | 0 | ");
    EXPECT_EQ(In("Percent", {Text("0.5"), Text("0"), Text("abc"), {}}), "50.00% | 0.00% | abc | ");
    EXPECT_EQ(In("Short Time", {Text("36585.25"), Text("noon")}), "06:00 | noon");
}

TEST(FormatValue, WritesAndReadsTheUsersSeparators)
{
    EXPECT_EQ(In("", {3.5, DateTime{36585.25}}, CommaLocale()), "3,50 | 29.02.2000 06.00");
    EXPECT_EQ(In("Percent", {0.25, Text("0,25")}, CommaLocale()), "25,00% | 25,00%");
    EXPECT_EQ(In("Fixed", {Text("1,5"), Text("1.5")}, CommaLocale()), "1,50 | 1.5");
}

}  // namespace
