#include "controls/CaptionFit.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <vector>

namespace {

constexpr int kDots = 9;
constexpr int kTolerance = 12;

struct Fitted {
    CaptionCut cut;
    std::size_t calls = 0;
};

int WidthOf(const std::vector<int>& widths, std::size_t count)
{
    return std::accumulate(widths.begin(), widths.begin() + static_cast<std::ptrdiff_t>(count), 0);
}

Fitted Fit(const std::vector<int>& widths, int room)
{
    Fitted fitted;
    fitted.cut = FitCaption({widths.size(), WidthOf(widths, widths.size()), kDots, kTolerance}, room,
                            [&](std::size_t count) {
                                ++fitted.calls;
                                return WidthOf(widths, count) + kDots;
                            });
    return fitted;
}

TEST(CaptionFit, CutsWhatDoesNotFit)
{
    const std::vector<int> even(20, 6);  // 120 wide
    const struct {
        int room;
        CaptionCut::Kind kind;
        std::size_t count;
    } cases[] = {
        {120, CaptionCut::Whole, 20},  {119, CaptionCut::Prefix, 18}, {60, CaptionCut::Prefix, 8},
        {9, CaptionCut::Prefix, 0},    {8, CaptionCut::Nothing, 0},   {0, CaptionCut::Nothing, 0},
        {-50, CaptionCut::Nothing, 0},
    };
    for (const auto& one : cases) {
        const auto fitted = Fit(even, one.room);
        EXPECT_EQ(fitted.cut.kind, one.kind) << one.room;
        EXPECT_EQ(fitted.cut.count, one.count) << one.room;
    }
    EXPECT_EQ(Fit({}, 0).cut.kind, CaptionCut::Whole);
}

// A character wider than the tolerance leaves a gap that no prefix fills; the search must not swing there.
TEST(CaptionFit, EndsAtWideCharacters)
{
    EXPECT_EQ(Fit({50, 50, 50}, 40).cut.count, 0U);
    EXPECT_EQ(Fit({50, 50, 50}, 60).cut.count, 1U);
    EXPECT_EQ(Fit({1, 1, 1, 1, 1000}, 100).cut.count, 4U);
    EXPECT_EQ(Fit({1000, 1, 1, 1, 1}, 100).cut.count, 0U);
}

TEST(CaptionFit, EndsForEveryFontAndText)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::vector<int> widths(random() % 60);
        for (auto& width : widths) width = static_cast<int>(random() % 40);
        const int room = static_cast<int>(random() % 400);
        const auto fitted = Fit(widths, room);
        ASSERT_LE(fitted.calls, widths.size() + 1);
        if (fitted.cut.kind != CaptionCut::Prefix) continue;
        const int unused = room - WidthOf(widths, fitted.cut.count) - kDots;
        ASSERT_GE(unused, 0);
        const bool isLast = fitted.cut.count == widths.size() || widths[fitted.cut.count] > unused;
        ASSERT_TRUE(unused <= kTolerance || isLast) << unused;
    }
}

TEST(CaptionFit, EndsWhenMeasuresMakeNoSense)
{
    std::mt19937 random(8);
    for (int round = 0; round < 2000; ++round) {
        std::size_t calls = 0;
        FitCaption({100, 900, kDots, 0}, 500, [&](std::size_t count) {
            EXPECT_LE(count, 100U);
            ++calls;
            return static_cast<int>(random() % 1000);
        });
        ASSERT_LE(calls, 101U);
    }
    for (const int width : {-100, 10'000})
        FitCaption({100, 900, kDots, 0}, 500, [=](std::size_t) { return width; });
}

}  // namespace
