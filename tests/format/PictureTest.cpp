#include "format/Picture.h"

#include "format/Show.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

std::string In(std::string_view picture, std::initializer_list<double> values)
{
    return Show(values, [&](double value) { return FormatPicture(value, picture, {}); });
}

TEST(Picture, FillsItsPlacesAndNeverCutsTheIntegerPart)
{
    EXPECT_EQ(In("000", {0, 7, 12345}), "000 | 007 | 12345");
    EXPECT_EQ(In("00.", {7, 123}), "07. | 123.");
    EXPECT_EQ(In("#", {0, 42, -0.4}), " | 42 | ");
    EXPECT_EQ(In(".00", {0.5, 12.5}), ".50 | 12.50");
    EXPECT_EQ(In("00-00", {1, 12345}), "00-01 | 123-45");
}

TEST(Picture, RoundsToItsDecimalsAndDropsWhatIsOptional)
{
    EXPECT_EQ(In("0.000", {0, 0.0125, 2}), "0.000 | 0.013 | 2.000");
    EXPECT_EQ(In("0.00", {1.005, -0.004, -0.005}), "1.01 | 0.00 | -0.01");
    EXPECT_EQ(In("#.##", {0, 0.5, 999.995}), " | .5 | 1000");
    EXPECT_EQ(In("0.##%", {0, 0.45, 0.4567, 0.455, 0.07, 0.57005}),
              "0% | 45% | 45.67% | 45.5% | 7% | 57.01%");
    EXPECT_EQ(In("0.00%", {-0.25, -0.00001}), "-25.00% | 0.00%");
}

TEST(Picture, GivesThePlainTextWithoutAPlaceForADigit)
{
    for (const auto picture : {"", "Number", R"("0")", ".", "%"})
        EXPECT_EQ(In(picture, {1.5}), "1.5") << picture;
    EXPECT_EQ(In("0.00%", {-INFINITY, NAN}), "-Infinity | NaN");
}

TEST(Picture, WritesTheUsersSeparatorAndHoldsAnyLength)
{
    EXPECT_EQ(FormatPicture(0.4567, "0.##%", CommaLocale()), "45,67%");
    EXPECT_EQ(FormatPicture(7, "00.", CommaLocale()), "07,");
    EXPECT_EQ(FormatPicture(1e308, "0.00%", {}).size(), 311U + 3 + 1);
    EXPECT_EQ(FormatPicture(1, std::string(1000, '0'), {}), std::string(999, '0') + '1');
}

}  // namespace
