#pragma once

#include <span>

enum class HeaderSide { Top, Bottom, Left, Right };

// A rectangle in a panel, in whatever unit the caller uses.
struct PanelRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const PanelRect&) const = default;
};

// Where a header of this thickness and the scroll bars' area go in a panel of this inner size.
struct PanelPlaces {
    PanelRect header;
    PanelRect scrollArea;
};
PanelPlaces LayOutPanel(HeaderSide side, double width, double height, double headerThickness);

// What the content size is computed by: lengths of the panel's unit but for twips in one unit.
struct ContentOrigin {
    double unitX = 1;
    double unitY = 1;
    double positionX = 0;  // of the scroll bars
    double positionY = 0;
    double margin = 0;
    double headerHeight = 0;  // 0 unless the header is at the top
};
struct ContentExtent {
    float width = 0;
    float height = 0;
};
// controls: in twips, from the panel's inner left top corner, as they are scrolled now.
ContentExtent MeasureContent(std::span<const PanelRect> controls, const ContentOrigin& origin);
