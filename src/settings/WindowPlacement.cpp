#include "settings/WindowPlacement.h"

#include "base/Twips.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::int64_t kLeastWidth = 240;
constexpr std::int64_t kLeastHeight = 160;
// The caption lies across the window's top. A user needs this much of it, in one piece, to take hold of.
constexpr std::int64_t kCaptionHeight = 24;
constexpr std::int64_t kGripWidth = 96;
constexpr std::int64_t kGripHeight = 12;

std::int32_t Twips(std::int64_t pixels, double dpi)
{
    const auto twips = TwipsFromPixels(static_cast<double>(pixels), dpi);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(twips, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

// How much two stretches have in common; negative: how far apart they are.
std::int64_t Overlap(std::int64_t start, std::int64_t length, std::int64_t otherStart,
                     std::int64_t otherLength)
{
    return std::min(start + length, otherStart + otherLength) - std::max(start, otherStart);
}

bool ShowsCaption(const PixelRect& window, const PixelRect& screen)
{
    // Half of it is enough, so that a small window may stand across the border of two screens.
    const auto grip = std::min(kGripWidth, window.width / 2);
    return Overlap(window.x, window.width, screen.x, screen.width) >= grip &&
           Overlap(window.y, kCaptionHeight, screen.y, screen.height) >= kGripHeight;
}

// Squared, and in floating point, since a rectangle may lie anywhere.
double Distance(const PixelRect& window, const PixelRect& screen)
{
    const auto gap = [](std::int64_t overlap) {
        return static_cast<double>(std::max<std::int64_t>(-overlap, 0));
    };
    const double across = gap(Overlap(window.x, window.width, screen.x, screen.width));
    const double down = gap(Overlap(window.y, window.height, screen.y, screen.height));
    return across * across + down * down;
}

PixelRect Around(std::span<const PixelRect> screens)
{
    auto left = screens.front().x;
    auto top = screens.front().y;
    auto right = left;
    auto bottom = top;
    for (const auto& screen : screens) {
        left = std::min(left, screen.x);
        top = std::min(top, screen.y);
        right = std::max(right, screen.x + screen.width);
        bottom = std::max(bottom, screen.y + screen.height);
    }
    return {left, top, right - left, bottom - top};
}

void LimitSize(PixelRect& window, std::int64_t width, std::int64_t height)
{
    window.width = std::clamp(window.width, kLeastWidth, std::max(kLeastWidth, width));
    window.height = std::clamp(window.height, kLeastHeight, std::max(kLeastHeight, height));
}

// The start of a stretch of this length that lies within the area; at its start when it is longer.
std::int64_t Within(std::int64_t start, std::int64_t length, std::int64_t areaStart, std::int64_t areaLength)
{
    return std::clamp(start, areaStart, std::max(areaStart, areaStart + areaLength - length));
}

}  // namespace

PixelRect PixelsOf(const WindowPlacement& placement, double dpi)
{
    const auto pixels = [dpi](std::int32_t twips) { return std::llround(PixelsFromTwips(twips, dpi)); };
    return {pixels(placement.left), pixels(placement.top), pixels(placement.width), pixels(placement.height)};
}

void SetPixels(WindowPlacement& placement, const PixelRect& window, double dpi)
{
    placement.left = Twips(window.x, dpi);
    placement.top = Twips(window.y, dpi);
    placement.width = Twips(window.width, dpi);
    placement.height = Twips(window.height, dpi);
}

PixelRect OntoScreens(PixelRect window, std::span<const PixelRect> screens)
{
    window.width = std::max(window.width, kLeastWidth);
    window.height = std::max(window.height, kLeastHeight);
    if (screens.empty()) return window;

    const auto all = Around(screens);
    LimitSize(window, all.width, all.height);
    if (std::any_of(screens.begin(), screens.end(),
                    [&window](const PixelRect& screen) { return ShowsCaption(window, screen); }))
        return window;

    const auto& nearest = *std::min_element(screens.begin(), screens.end(),
                                            [&window](const PixelRect& left, const PixelRect& right) {
                                                return Distance(window, left) < Distance(window, right);
                                            });
    LimitSize(window, nearest.width, nearest.height - kCaptionHeight);
    window.x = Within(window.x, window.width, nearest.x, nearest.width);
    window.y = Within(window.y, window.height + kCaptionHeight, nearest.y, nearest.height);
    return window;
}
