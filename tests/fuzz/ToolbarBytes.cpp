#include "controls/ToolbarLayout.h"

#include "fuzz/Targets.h"

#include <set>

namespace fuzz {
namespace {

ToolbarLayout Standard()
{
    return ToolbarLayout({"Connect", "Stop", "Refresh", "", "Remove", "", "Panels", "Help"});
}

void RequireBar(const ToolbarLayout& layout)
{
    std::multiset<std::string> all(layout.Current().begin(), layout.Current().end());
    Require(all.count("") <= ToolbarLayout::kMostSeparators, "separators are limited");
    for (const auto& item : layout.Available()) all.insert(item);
    all.erase("");
    const std::multiset<std::string> buttons{"Connect", "Help", "Panels", "Refresh", "Remove", "Stop"};
    Require(all == buttons, "each button is on the bar or available, once");
}

}  // namespace

void ToolbarBytes(Input bytes)
{
    auto layout = Standard();
    const bool isRestored =
        layout.Restore({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    Require(isRestored || layout.IsStandard(), "damaged bytes give the default");
    RequireBar(layout);
    auto again = Standard();
    Require(again.Restore(layout.Bytes()) && again.Current() == layout.Current(),
            "what was stored is restored");
}

}  // namespace fuzz
