#include "controls/PanelLayout.h"

#include <algorithm>

PanelPlaces LayOutPanel(HeaderSide side, double width, double height, double headerThickness)
{
    const double restWidth = std::max(0.0, width - headerThickness);
    const double restHeight = std::max(0.0, height - headerThickness);
    switch (side) {
    case HeaderSide::Bottom: return {{0, restHeight, width, headerThickness}, {0, 0, width, restHeight}};
    case HeaderSide::Left: return {{0, 0, headerThickness, height}, {headerThickness, 0, restWidth, height}};
    case HeaderSide::Right: return {{restWidth, 0, headerThickness, height}, {0, 0, restWidth, height}};
    case HeaderSide::Top: break;
    }
    return {{0, 0, width, headerThickness}, {0, headerThickness, width, restHeight}};
}

ContentExtent MeasureContent(std::span<const PanelRect> controls, const ContentOrigin& origin)
{
    ContentExtent extent;
    for (const auto& one : controls) {
        const double x = (one.left + one.width) / origin.unitX + origin.positionX + origin.margin;
        const double y = (one.top + one.height) / origin.unitY + origin.positionY + origin.margin;
        extent.width = std::max(extent.width, static_cast<float>(x));
        extent.height = std::max(extent.height, static_cast<float>(y - origin.headerHeight));
    }
    return extent;
}
