#pragma once

#include <cstdint>
#include <span>

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// Where the main window stands, in twips: its upper left corner with the frame, its size without.
struct WindowPlacement {
    WindowState state = WindowState::Normal;
    std::int32_t left = 300;  // these four are of the normal window, whatever the state
    std::int32_t top = 300;
    std::int32_t width = 12000;
    std::int32_t height = 9000;
};

// A rectangle in the pixels that windows are placed in.
struct PixelRect {
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;

    bool operator==(const PixelRect&) const = default;
};

// The normal window's rectangle, there and back. `dpi` is the resolution that both go by, above 0; up to 1440
// a rectangle comes back as it was.
PixelRect PixelsOf(const WindowPlacement& placement, double dpi);
void SetPixels(WindowPlacement& placement, const PixelRect& window, double dpi);

// A stored rectangle as it can be used. One whose caption a user can reach on any of the screens stays where
// it is, be it partly outside; any other is moved to the screen nearest to it, as little as it takes, and
// made as small as that screen. A size that is too small for a window grows, one beyond all screens shrinks.
// `screens`: the areas that windows may cover; when there is none, only the size is looked after.
PixelRect OntoScreens(PixelRect window, std::span<const PixelRect> screens);
