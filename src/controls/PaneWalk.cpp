#include "controls/PaneWalk.h"

#include "controls/Panes.h"

#include <algorithm>

namespace {

void AddLeaves(const Panes& panes, std::vector<Pane*>& leaves)
{
    for (const auto& pane : panes) {
        if (!pane->Visible()) continue;
        if (pane->Child()) {
            AddLeaves(*pane->Child(), leaves);
        } else if (pane->Control()) {
            leaves.push_back(pane.get());
        }
    }
}

}  // namespace

std::vector<Pane*> VisibleLeaves(const Panes& top)
{
    std::vector<Pane*> leaves;
    AddLeaves(top, leaves);
    return leaves;
}

Pane* NextLeaf(const Panes& top, const Pane* from, bool isForward)
{
    const auto leaves = VisibleLeaves(top);
    if (leaves.empty()) return nullptr;
    const auto found = std::find(leaves.begin(), leaves.end(), from);
    if (found == leaves.end()) return isForward ? leaves.front() : leaves.back();
    const auto place = static_cast<std::size_t>(found - leaves.begin());
    const auto step = isForward ? 1 : leaves.size() - 1;
    return leaves[(place + step) % leaves.size()];
}
