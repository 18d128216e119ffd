#include "controls/SplitterLayout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr std::int64_t kOutOfSight = 100;  // beyond the splitter's end lies a pane that is not shown

struct Axes {
    bool isMainX;

    SplitterRect Rect(std::int64_t mainPlace, std::int64_t crossPlace, std::int64_t mainSize,
                      std::int64_t crossSize) const
    {
        const auto main = std::max<std::int64_t>(mainSize, 0);
        const auto cross = std::max<std::int64_t>(crossSize, 0);
        if (isMainX) return {mainPlace, crossPlace, main, cross};
        return {crossPlace, mainPlace, cross, main};
    }
};

}  // namespace

float ClampedPos(const SplitterShape& shape)
{
    const auto least = static_cast<float>(shape.splitterPosMin);
    const auto most = static_cast<float>(shape.splitterPosMax);
    if (!(shape.splitterPos >= least)) return least;  // nor what is no number
    return shape.splitterPos > most ? most : shape.splitterPos;
}

std::int64_t ShareOf(std::int64_t freeLength, double percent)
{
    return static_cast<std::int64_t>(std::nearbyint(static_cast<double>(freeLength) * percent)) / 100;
}

SplitterLayout LayOut(const SplitterShape& shape, std::int64_t width, std::int64_t height)
{
    const Axes axes{shape.orientation == 0};
    const auto length = axes.isMainX ? width : height;
    const auto cross = axes.isMainX ? height : width;

    SplitterLayout layout;
    if (shape.visiblePanes != 0) {
        const auto shown = static_cast<std::size_t>(shape.visiblePanes - 1);
        layout.panes[shown] = axes.Rect(0, 0, length, cross);
        layout.panes[1 - shown] = axes.Rect(length + kOutOfSight, cross + kOutOfSight, 0, 0);
        return layout;
    }
    const auto bar = ShareOf(length - shape.splitterSize, shape.splitterPos);
    const auto end = bar + shape.splitterSize;
    layout.bar = axes.Rect(bar, 0, shape.splitterSize, cross);
    layout.panes[0] = axes.Rect(0, 0, bar, cross);
    layout.panes[1] = axes.Rect(end, 0, length - end, cross);
    return layout;
}

std::int64_t DraggedBar(const SplitterShape& shape, std::int64_t freeLength, std::int64_t wanted)
{
    const auto least = ShareOf(freeLength, shape.splitterPosMin);
    const auto most = ShareOf(freeLength, shape.splitterPosMax);
    return wanted < least ? least : std::min(wanted, most);
}

std::int64_t BarForPane(int index, std::int64_t length, std::int64_t freeLength)
{
    const auto given = std::min(length, freeLength);
    return index == 1 ? given : freeLength - given;
}
