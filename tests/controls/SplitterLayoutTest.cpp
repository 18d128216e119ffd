#include "controls/SplitterLayout.h"

#include <gtest/gtest.h>

namespace {

TEST(SplitterLayout, SharesARoundedPercentage)
{
    const struct {
        std::int64_t freeLength;
        double percent;
        std::int64_t share;
    } cases[] = {
        {950, 50, 475}, {2469, 0.5, 12}, {2471, 0.5, 12}, {997, 33, 329},
        {-35, 50, -17}, {-1, 50, 0},     {0, 100, 0},     {2'000'000'000, 100, 2'000'000'000},
    };
    for (const auto& one : cases)
        EXPECT_EQ(ShareOf(one.freeLength, one.percent), one.share) << one.freeLength << " " << one.percent;
    EXPECT_EQ(ShareOf(6175, 20), 1235);
    EXPECT_EQ(ShareOf(3, 411.5), 12);  // 1234.5 is a tie
    EXPECT_EQ(ShareOf(1, 1299.5), 13) << "1299.5 is a tie that goes up";
}

TEST(SplitterLayout, PlacesBarAndPanes)
{
    using Rect = SplitterRect;
    const struct {
        SplitterShape shape;
        std::int64_t width, height;
        Rect bar, first, second;
    } cases[] = {
        {{}, 1000, 300, {475, 0, 50, 300}, {0, 0, 475, 300}, {525, 0, 475, 300}},
        {{.orientation = 1}, 300, 1000, {0, 475, 300, 50}, {0, 0, 300, 475}, {0, 525, 300, 475}},
        {{.splitterPos = 41.7F}, 1000, 9, {396, 0, 50, 9}, {0, 0, 396, 9}, {446, 0, 554, 9}},
        {{.visiblePanes = 1}, 1000, 300, {}, {0, 0, 1000, 300}, {1100, 400, 0, 0}},
        {{.visiblePanes = 2}, 1000, 300, {}, {1100, 400, 0, 0}, {0, 0, 1000, 300}},
        {{.orientation = 1, .visiblePanes = 2}, 300, 1000, {}, {400, 1100, 0, 0}, {0, 0, 300, 1000}},
        // Thinner than the bar: the bar covers all, and nothing has a negative size.
        {{}, 15, 15, {-17, 0, 50, 15}, {0, 0, 0, 15}, {33, 0, 0, 15}},
        {{.splitterPos = 100}, 0, 0, {-50, 0, 50, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}},
    };
    for (const auto& one : cases) {
        const auto layout = LayOut(one.shape, one.width, one.height);
        const auto at = testing::Message() << "case " << &one - cases;
        EXPECT_EQ(layout.bar, one.bar) << at;
        EXPECT_EQ(layout.panes[0], one.first) << at;
        EXPECT_EQ(layout.panes[1], one.second) << at;
    }
}

TEST(SplitterLayout, KeepsADraggedBarWithinItsLimits)
{
    const SplitterShape shape{.splitterPosMin = 20, .splitterPosMax = 80};
    EXPECT_EQ(DraggedBar(shape, 950, 500), 500);
    EXPECT_EQ(DraggedBar(shape, 950, -3), 190);
    EXPECT_EQ(DraggedBar(shape, 950, 951), 760);
    EXPECT_EQ(BarForPane(1, 300, 950), 300);
    EXPECT_EQ(BarForPane(2, 300, 950), 650);
    EXPECT_EQ(BarForPane(2, 5000, 950), 0);
}

}  // namespace
