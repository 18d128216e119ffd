#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

class Panes;
class QWidget;

// How a panel stands in the window's splitters.
struct PanelPlace {
    bool isShown = true;
    std::int32_t splitterPos = 50;  // of the splitter that holds its pane, in percent
};

// The place of a control's pane below the top splitter's panes; the default for one that has none.
PanelPlace PlaceOfPanel(const Panes& top, const QWidget* panel);

// Shows or hides a control's pane; its neighbour takes or leaves the room. Nothing for one that has none.
void EnablePane(const Panes& top, const QWidget* panel, bool isEnabled);

// The four panels' places as they are saved in "Panels": a byte that is 1 for a shown panel and 0 for a
// hidden one, then a byte with the percentage.
std::array<std::byte, 8> PanelBytes(std::span<const PanelPlace, 4> places);
