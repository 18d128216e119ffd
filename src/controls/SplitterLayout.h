#pragma once

#include <array>
#include <cstdint>

// The arithmetic of one splitter. Lengths are in the splitter's own units, pane 1 lies at the low end of the
// main axis: x when the bar is vertical (orientation 0), y when it is horizontal (orientation 1).

struct SplitterShape {
    std::int32_t orientation = 0;    // 0: panes left and right; 1: top and bottom
    std::int32_t splitterSize = 50;  // thickness of the bar along the main axis, at least 1
    float splitterPos = 50;          // percent of the free length
    std::int32_t splitterPosMin = 0;
    std::int32_t splitterPosMax = 100;
    std::int32_t visiblePanes = 0;  // 0: both and the bar; 1 or 2: that one alone
};

struct SplitterRect {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t width = 0;  // never negative, as the height
    std::int64_t height = 0;

    bool operator==(const SplitterRect&) const = default;
};

struct SplitterLayout {
    SplitterRect bar;
    std::array<SplitterRect, 2> panes;
};

// The position within its limits.
float ClampedPos(const SplitterShape& shape);

// Where the bar and the panes of a splitter of this width and height lie; `shape` with its position clamped.
// A splitter thinner than its bar shows nothing but the bar.
SplitterLayout LayOut(const SplitterShape& shape, std::int64_t width, std::int64_t height);

// round(free * percent) / 100: to the nearest whole number, ties to even, then towards zero.
std::int64_t ShareOf(std::int64_t freeLength, double percent);

// Where the bar comes to lie that a drag wants at `wanted`, in a splitter with that free length: within the
// least and the greatest position.
std::int64_t DraggedBar(const SplitterShape& shape, std::int64_t freeLength, std::int64_t wanted);

// Where the bar must lie for pane `index` (1 or 2) to be `length` long; at most the free length is given.
std::int64_t BarForPane(int index, std::int64_t length, std::int64_t freeLength);
