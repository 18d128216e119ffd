#include "format/DecimalText.h"
#include "format/NumberText.h"

#include "format/Show.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

std::string Texts(std::initializer_list<DecimalText> numbers)
{
    return Show(numbers, [](const DecimalText& number) { return number.Text("."); });
}

std::string Rounded(int decimals, std::initializer_list<double> values)
{
    return Show(values, [&](double value) { return DecimalText(value).Round(decimals).Text("."); });
}

template <class Number>
using Limits = std::numeric_limits<Number>;

TEST(DecimalText, PlainTextGivesTheValueBackWithoutBinaryNoise)
{
    EXPECT_EQ(Texts({0.0, -0.0, -2.5, 123456789.0, 0.000001}), "0 | 0 | -2.5 | 123456789 | 0.000001");
    EXPECT_EQ(Texts({0.1 + 0.2, 0.1F, 16777217.0F}), "0.3 | 0.1 | 16777216");
    EXPECT_EQ(Texts({1.0 / 3, -2.0 / 3}), "0.333333333333333 | -0.666666666666667");
    EXPECT_EQ(Texts({1e20, 18446744073709551615.0}), "100000000000000000000 | 18446744073709600000");
    EXPECT_EQ(Texts({Limits<std::int64_t>::min(), Limits<std::int32_t>::max()}),
              "-9223372036854775808 | 2147483647");
    EXPECT_EQ(Texts({INFINITY, -Limits<double>::infinity(), std::nan("")}), "Infinity | -Infinity | NaN");
    EXPECT_EQ(DecimalText(Limits<double>::max()).Text(".").size(), 309U);
    EXPECT_EQ(DecimalText(Limits<float>::denorm_min()).Text(".").back(), '1');
    EXPECT_EQ(PlainText(-2.5, CommaLocale()), "-2,5");
}

TEST(DecimalText, RoundsTheDecimalTextHalfAwayFromZero)
{
    EXPECT_EQ(Rounded(2, {1.125, -1.125, 1.005, 2.675, 1.124999}), "1.13 | -1.13 | 1.01 | 2.68 | 1.12");
    EXPECT_EQ(Rounded(2, {9.999, 0.005, -0.004, 0.0001}), "10 | 0.01 | 0 | 0");
    EXPECT_EQ(Rounded(0, {0.5, 0.4999, 99.5}), "1 | 0 | 100");
    EXPECT_EQ(DecimalText(0.0045).MultiplyByPowerOfTen(2).Text("."), "0.45");
    EXPECT_EQ(DecimalText(-INFINITY).MultiplyByPowerOfTen(2).Round(-1).Text("."), "-Infinity");
}

TEST(ParseNumber, TakesWholeTextsInTheUsersForm)
{
    const auto parsed = [](std::initializer_list<const char*> texts, const FormatLocale& locale) {
        return Show(texts,
                    [&](const char* text) { return PlainText(ParseNumber(text, locale).value_or(NAN), {}); });
    };
    EXPECT_EQ(parsed({"12", " -1 ", "+3", "1.5", ".5", "1e3"}, {}), "12 | -1 | 3 | 1.5 | 0.5 | 1000");
    EXPECT_EQ(parsed({"", " ", "-", ".", "--1", "+-1", "1 2"}, {}),
              "NaN | NaN | NaN | NaN | NaN | NaN | NaN");
    EXPECT_EQ(parsed({"0x10", "inf", "nan", "5%", "1,5", "1e999"}, {}), "NaN | NaN | NaN | NaN | NaN | NaN");
    EXPECT_EQ(parsed({"12", "1,5", ",5", "1.5", "1,5,5"}, CommaLocale()), "12 | 1.5 | 0.5 | NaN | NaN");
}

}  // namespace
