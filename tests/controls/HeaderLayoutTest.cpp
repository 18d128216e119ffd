#include "controls/CoordinateScale.h"
#include "controls/HeaderLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// 2000 by 285 units, a pixel is 15, the close button 225 by 225.
TEST(HeaderLayout, PlacesImageCaptionAndCloseButton)
{
    const HeaderSize panelHeader{2000, 285, 15, 15, 1};
    const auto usable = UsableArea(panelHeader, 225);
    EXPECT_EQ(usable, (UnitRect{30, 15, 1700, 255}));
    EXPECT_EQ(CaptionPlace(panelHeader, usable, 0, 195, true), (UnitRect{75, 45, 1610, 195}));
    EXPECT_EQ(CaptionPlace(panelHeader, usable, 240, 195, false), (UnitRect{315, 15, 1370, 195}));
    EXPECT_EQ(ClosePlace(panelHeader, 225, 90).height, 225);
    EXPECT_EQ(ClosePlace(panelHeader, 225, 900).height, 255);
    EXPECT_EQ(UsableArea({15, 15, 15, 15, 9}, 225), (UnitRect{150, 135, 0, 0}));
    EXPECT_EQ((HeaderSize{0, 0, 1440.0 / 120, 1440.0 / 144, 0}.Across(3)), 36);

    // An image that is too large is cropped to its middle.
    EXPECT_EQ(PlaceImage(100, 40, true), (ImageSpan{30, 0, 40}));
    EXPECT_EQ(PlaceImage(100, 40, false), (ImageSpan{0, 0, 40}));
    EXPECT_EQ(PlaceImage(100, 140, false), (ImageSpan{0, 20, 100}));
    EXPECT_EQ(PlaceImage(0, 40, true), (ImageSpan{0, 20, 0}));
}

TEST(CoordinateScale, ConvertsBetweenUnits)
{
    CoordinateScale scale;
    scale.SetSurface(200, 100, 96, 144);
    EXPECT_EQ(scale.Width(), 3000);
    EXPECT_EQ(scale.Height(), 1000);
    const struct {
        int mode;
        float x, y;  // of 1440 twips
    } cases[] = {{1, 1440, 1440}, {2, 72, 72},       {3, 96, 144},     {4, 12, 6},
                 {5, 1, 1},       {6, 25.4F, 25.4F}, {7, 2.54F, 2.54F}};
    for (const auto& one : cases) {
        EXPECT_FLOAT_EQ(scale.ScaleX(1440, 1, one.mode), one.x);
        EXPECT_FLOAT_EQ(scale.ScaleY(one.y, one.mode, 1), 1440);
    }
    EXPECT_FALSE(scale.SetMode(8) || scale.SetMode(-1));
    ASSERT_TRUE(scale.SetUser(-1, 1, 2, -4));
    EXPECT_EQ(scale.Mode(), CoordinateScale::kUser);
    EXPECT_EQ(scale.TwipsX(1), 1500);
    EXPECT_EQ(scale.TwipsY(1), -250) << "upwards";
    EXPECT_FALSE(scale.SetUser(0, 0, 0, 1) || scale.SetUser(0, 0, 1, std::numeric_limits<float>::infinity()));
    EXPECT_EQ(scale.Width(), 2);
    scale.SetSurface(0, 0, 96, 96);
    EXPECT_NE(scale.TwipsX(1), 0) << "a surface without a size";
}

}  // namespace
