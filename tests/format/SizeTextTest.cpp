#include "format/SizeText.h"

#include "format/Show.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

std::string Sizes(std::initializer_list<double> values)
{
    return Show(values, [](double bytes) { return FormatSize(bytes, {}); });
}

std::string Parsed(std::initializer_list<const char*> texts)
{
    return Show(texts,
                [](const char* text) { return std::to_string(std::llround(ParseSizeText(text, {}))); });
}

TEST(SizeText, ScalesInStepsOf1024Above1000)
{
    EXPECT_EQ(Sizes({0, -0.0, 999, 999.5, 1000}), "0 | 0 | 999 | 999.50 | 1000");
    EXPECT_EQ(Sizes({1001, 1024, 1152, 1536}), "0.98 KiB | 1 KiB | 1.13 KiB | 1.50 KiB");
    EXPECT_EQ(Sizes({1000000, 1023999, 1024000}), "976.56 KiB | 1000.00 KiB | 1000 KiB");
    EXPECT_EQ(Sizes({1048576, 1500000, 1073741824}), "1 MiB | 1.43 MiB | 1 GiB");
    EXPECT_EQ(Sizes({1099511627776, 0x1p50, 0x1p60, 0x1p70}), "1 TiB | 1 PiB | 1 EiB | 1024 EiB");
    EXPECT_EQ(Sizes({-5000, -5000.25}), "-5000 | -5000.25");
    EXPECT_EQ(Sizes({INFINITY, -INFINITY, NAN}), "Infinity | -Infinity | NaN");
}

TEST(SizeText, ParsesWhatItWrote)
{
    for (double bytes = 1; bytes < 1e21; bytes = std::ceil(bytes * 1.37)) {
        for (const auto& locale : {FormatLocale(), CommaLocale()}) {
            const double back = ParseSizeText(FormatSize(bytes, locale), locale);
            // Half of the last decimal shown; the smallest number with decimals is 1000/1024.
            EXPECT_NEAR(back, bytes, bytes * 0.005 / (1000.0 / 1024) * (1 + 1e-9)) << bytes;
        }
    }
    EXPECT_EQ(Parsed({"1.50 KiB", "999", "1000.00 KiB", "1 EiB"}),
              "1536 | 999 | 1024000 | 1152921504606846976");
    EXPECT_EQ(Parsed({"-5000", "1  KiB", " 7 ", "2 of 3 MiB"}), "-5000 | 1024 | 7 | 2097152");
    EXPECT_EQ(Parsed({"", "---", "1 kib", "1 KB", "x KiB", " KiB"}), "0 | 0 | 0 | 0 | 0 | 0");
    EXPECT_EQ(Parsed({"KiB", "1KiB", "1,50 KiB", "1 KiB ", "1e999"}), "0 | 0 | 0 | 0 | 0");
    EXPECT_EQ(ParseSizeText("1.50 KiB", CommaLocale()), 0);
}

}  // namespace
