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
        {1500, 1000, 1501, 900, true, false, 1500, 0},
        {1500, 1000, 0, 0, false, false, 0, 0},
        {1, 1, 50, 50, true, true, 0, 0},
        {0, 0, 50, -5, true, false, 0, 0},
    };
    for (const auto& one : cases) {
        const auto model = Automatic(one.width, one.height, one.extentX, one.extentY);
        EXPECT_EQ(model.Of(H).bar.isShown, one.needsX) << one.extentX << " " << one.extentY;
        EXPECT_EQ(model.Of(V).bar.isShown, one.needsY) << one.extentX << " " << one.extentY;
        EXPECT_EQ(one.needsX ? model.Of(H).page : 0, one.pageX) << one.extentX << " " << one.extentY;
        EXPECT_EQ(one.needsY ? model.Of(V).page : 0, one.pageY) << one.extentX << " " << one.extentY;
    }
}

TEST(ScrollModel, LowersAPositionThatLiesBeyondTheEnd)
{
    auto model = Automatic(1200, 1000, 2000, 0);
    model.SetPosition(H, 800);
    const auto changes = model.SetSize(1500, 1000);
    EXPECT_TRUE(changes.horizontal && !changes.vertical);
    EXPECT_EQ(model.Of(H).position, 500);
    EXPECT_EQ(model.Of(H).maximum, 2000);
    EXPECT_TRUE(model.SetSize(2000, 1000).horizontal);
    EXPECT_EQ(model.Of(H).position, 0);
    EXPECT_FALSE(model.SetSize(1200, 1000).horizontal) << "what was scrolled before is forgotten";
}

TEST(ScrollModel, KeepsAPositionThatOnlyTheFirstRoundWouldLower)
{
    auto model = Automatic(1500, 1000, 2000, 3000);
    model.SetPosition(H, 700);
    EXPECT_EQ(model.Of(H).position, 700);  // the vertical bar takes 200: 2000 - 1300
    EXPECT_FALSE(model.SetSize(1500, 1001).horizontal);
    EXPECT_EQ(model.Of(H).position, 700);
}

TEST(ScrollModel, AnswersRequests)
{
    const struct {
        int code, track;
        float before, after;
    } cases[] = {
        {ScrollCode::LineUp, 0, 100, 80},
        {ScrollCode::LineDown, 0, 100, 120},
        {ScrollCode::PageUp, 0, 100, 0},
        {ScrollCode::PageDown, 0, 100, 400},
        {ScrollCode::PageDown, 0, 500, 700},
        {ScrollCode::ThumbTrack, 333, 100, 333},
        {ScrollCode::ThumbTrack, -5, 100, 0},
        {ScrollCode::ThumbTrack, 2'000'000'000, 100, 700},
        {ScrollCode::Top, 0, 100, 0},
        {ScrollCode::Bottom, 0, 100, 700},
        {ScrollCode::ThumbPosition, 7, 100, 100},
        {ScrollCode::EndScroll, 7, 100, 100},
        {ScrollCode::Bottom, 0, 700, 700},
        {-1, 9, 100, 100},
    };
    for (const auto& one : cases) {
        auto model = Automatic(300, 100, 1000, 0);
        model.SetPosition(H, one.before);
        EXPECT_EQ(model.Request(H, one.code, one.track), one.before != one.after) << one.code;
        EXPECT_EQ(model.Of(H).position, one.after) << one.code;
        EXPECT_FALSE(model.Request(V, one.code, one.track)) << "a bar that is not needed does not move";
    }
}

TEST(ScrollModel, LeavesPositionsToTheHostInManualMode)
{
    auto model = Automatic(300, 100, 0, 0);
    model.SetAutomatic(false);
    EXPECT_EQ(model.Extent(H), 300) << "the own size while there is no range";
    ASSERT_TRUE(model.SetMaximum(H, 100));
    EXPECT_EQ(model.Extent(H), 100);
    model.SetPage(H, 20);
    model.SetMinimum(H, 10);
    EXPECT_EQ(model.Of(H).position, 10);
    model.SetPosition(H, 99);
    EXPECT_EQ(model.Of(H).position, 80);
    model.SetMinimum(H, 5);
    EXPECT_EQ(model.Of(H).position, 75);
    EXPECT_TRUE(model.Request(H, ScrollCode::LineUp, 0));
    EXPECT_EQ(model.Of(H).position, 75);
    const auto refused = model.SetMaximum(H, 74);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, 5U);
    EXPECT_EQ(model.Of(H).maximum, 100);
    EXPECT_TRUE(model.SetMaximum(H, 75));
    EXPECT_TRUE(model.Of(H).bar.isShown);
    model.SetWanted(H, false);
    EXPECT_FALSE(model.Of(H).bar.isShown);
}

TEST(ScrollModel, IgnoresManualSettersInAutomaticMode)
{
    auto model = Automatic(300, 100, 1000, 0);
    model.SetMinimum(H, 50);
    EXPECT_TRUE(model.SetMaximum(H, -50));
    model.SetPage(H, 1);
    EXPECT_EQ(model.Of(H).minimum, 0);
    EXPECT_EQ(model.Of(H).maximum, 1000);
    EXPECT_EQ(model.Of(H).page, 300);
    model.SetWanted(H, false);
    EXPECT_FALSE(model.Of(H).bar.isShown);
    EXPECT_TRUE(model.Request(H, ScrollCode::PageDown, 0)) << "hidden, but needed all the same";
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
