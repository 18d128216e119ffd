#include "stats/PanelArrangement.h"

#include "controls/Panes.h"
#include "controls/SplitterCore.h"

#include <algorithm>

PanelPlace PlaceOfPanel(const Panes& top, const QWidget* panel)
{
    const auto* const pane = top.FindChildControl(panel);
    if (pane == nullptr) return {};
    return {pane->Visible(), pane->Splitter()->SplitterPos()};
}

void EnablePane(const Panes& top, const QWidget* panel, bool isEnabled)
{
    if (auto* const pane = top.FindChildControl(panel)) pane->SetEnabled(isEnabled);
}

std::array<std::byte, 8> PanelBytes(std::span<const PanelPlace, 4> places)
{
    std::array<std::byte, 8> bytes;
    for (std::size_t i = 0; i < places.size(); ++i) {
        bytes[2 * i] = places[i].isShown ? std::byte{1} : std::byte{0};
        bytes[2 * i + 1] = static_cast<std::byte>(std::clamp(places[i].splitterPos, 0, 100));
    }
    return bytes;
}
