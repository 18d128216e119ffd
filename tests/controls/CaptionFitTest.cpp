#include "controls/CaptionFit.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <vector>

namespace {

constexpr int kDots = 9;
constexpr int kTolerance = 12;

// A character wider than the tolerance leaves a gap that no prefix fills; the search must not swing there.
TEST(CaptionFit, EndsForEveryFontAndText)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::vector<int> widths(random() % 60);
        for (auto& width : widths) width = static_cast<int>(random() % (round % 2 == 0 ? 40 : 1000));
        const auto widthOf = [&](std::size_t count) {
            return std::accumulate(widths.begin(), widths.begin() + static_cast<std::ptrdiff_t>(count), 0);
        };
        const int room = static_cast<int>(random() % 400);
        std::size_t calls = 0;
        const auto cut = FitCaption({widths.size(), widthOf(widths.size()), kDots, kTolerance}, room,
                                    [&](std::size_t count) {
                                        ++calls;
                                        return widthOf(count) + kDots;
                                    });
        ASSERT_LE(calls, widths.size() + 1);
        ASSERT_EQ(cut.kind == CaptionCut::Whole, widthOf(widths.size()) <= room);
        ASSERT_EQ(cut.kind == CaptionCut::Nothing, cut.kind != CaptionCut::Whole && kDots > room);
        if (cut.kind != CaptionCut::Prefix) continue;
        const int unused = room - widthOf(cut.count) - kDots;
        ASSERT_GE(unused, 0);
        const bool isLast = cut.count == widths.size() || widths[cut.count] > unused;
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
