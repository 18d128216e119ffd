#include "controls/ScrollModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr auto H = ScrollAxis::Horizontal;
constexpr auto V = ScrollAxis::Vertical;

ScrollModel Automatic(float width, float height, float extentX, float extentY)
{
    ScrollModel model;
    model.SetBarThickness(200, 100);
    model.SetSize(width, height);
    model.SetExtent(H, extentX);
    model.SetExtent(V, extentY);
    return model;
}

TEST(ScrollModel, FitsBothAxes)
{
    const struct {
        float width, height, extentX, extentY;
        bool needsX, needsY;
        float pageX, pageY;  // 0: not needed
    } cases[] = {
        {1500, 1000, 1500, 1000, false, false, 0, 0},
        {1500, 1000, 2000, 500, true, false, 1500, 0},
        {1500, 1000, 1000, 1001, false, true, 0, 1000},
        {1500, 1000, 1301, 1001, true, true, 1300, 900},  // the vertical bar makes the other one needed
        {1500, 1000, 1501, 901, true, true, 1300, 900},   // and the other way round
        {1500, 1000, 0, 0, false, false, 0, 0},
        {1, 1, 50, 50, true, true, 0, 0},
        {0, 0, 50, -5, true, false, 0, 0},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::Message() << one.extentX << " " << one.extentY);
        const auto model = Automatic(one.width, one.height, one.extentX, one.extentY);
        EXPECT_EQ(model.Of(H).bar.isShown, one.needsX);
        EXPECT_EQ(model.Of(V).bar.isShown, one.needsY);
        EXPECT_EQ(one.needsX ? model.Of(H).page : 0, one.pageX);
        EXPECT_EQ(one.needsY ? model.Of(V).page : 0, one.pageY);
    }
}

TEST(ScrollModel, BearsNumbersThatAreNone)
{
    for (const float wild : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                             -std::numeric_limits<float>::max(), std::numeric_limits<float>::max()}) {
        auto model = Automatic(wild, 100, wild, wild);
        model.SetPosition(H, wild);
        model.Request(H, ScrollCode::PageDown, std::numeric_limits<int>::max());
        model.SetAutomatic(false);
        model.SetMinimum(V, wild);
        model.SetPage(V, wild);
        (void)model.SetMaximum(V, wild);
        model.SetPosition(V, wild);
        EXPECT_TRUE(std::isfinite(model.Of(H).position) && std::isfinite(model.Of(V).position));
        EXPECT_LE(model.Of(V).bar.minimum, model.Of(V).bar.position);
    }
}

}  // namespace
