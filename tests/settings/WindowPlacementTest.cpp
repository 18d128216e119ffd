#include "settings/WindowPlacement.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <vector>

static void PrintTo(const PixelRect& rect, std::ostream* out)
{
    *out << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

namespace {

constexpr PixelRect kScreen{0, 0, 1920, 1080};
constexpr PixelRect kRight{1920, 200, 1280, 1024};
constexpr PixelRect kLeft{-1600, 0, 1600, 900};
constexpr std::int64_t kFar = std::numeric_limits<std::int32_t>::max();

TEST(WindowPlacement, PixelsComeBackAsTheyWere)
{
    EXPECT_EQ(PixelsOf({}, 96), (PixelRect{20, 20, 800, 600}));
    EXPECT_EQ(PixelsOf({}, 192), (PixelRect{40, 40, 1600, 1200}));
    for (const double dpi : {72.0, 96.0, 101.6, 120.0, 144.0, 163.0, 288.0, 1440.0})
        for (const std::int64_t start : {-5000, -1, 0, 1, 333, 7680}) {
            const PixelRect window{start, -start, 1000 + start % 7, 801};
            WindowPlacement placement;
            SetPixels(placement, window, dpi);
            EXPECT_EQ(PixelsOf(placement, dpi), window) << dpi;
        }
}

TEST(WindowPlacement, AWindowIsBroughtBackOnlyWhenItsCaptionIsOutOfReach)
{
    const std::vector<PixelRect> one{kScreen};
    const std::vector<PixelRect> three{kScreen, kRight, kLeft};
    const struct {
        const char* what;
        std::vector<PixelRect> screens;
        PixelRect stored, used;
    } cases[] = {
        {"inside", one, {20, 20, 800, 600}, {20, 20, 800, 600}},
        {"partly right", one, {1800, 20, 800, 600}, {1800, 20, 800, 600}},
        {"mostly below", one, {20, 1060, 800, 600}, {20, 1060, 800, 600}},
        {"a sliver at the right", one, {1900, 20, 800, 600}, {1120, 20, 800, 600}},
        {"only the frame's edge below", one, {20, 1075, 800, 600}, {20, 456, 800, 600}},
        {"caption above", one, {20, -50, 800, 600}, {20, 0, 800, 600}},
        {"on a screen that is gone", one, {2500, 300, 800, 600}, {1120, 300, 800, 600}},
        {"on a screen that is there", three, {2500, 300, 800, 600}, {2500, 300, 800, 600}},
        {"too large for its new screen", three, {-9000, 0, 3000, 900}, {-1600, 0, 1600, 876}},
        {"no size", one, {20, 20, 0, -5}, {20, 20, 240, 160}},
        {"absurd size", one, {20, 20, kFar, kFar}, {20, 20, 1920, 1080}},
        {"no screen", {}, {-9000, 9000, 1, 900}, {-9000, 9000, 240, 900}},
    };
    for (const auto& window : cases)
        EXPECT_EQ(OntoScreens(window.stored, window.screens), window.used) << window.what;
}

}  // namespace
