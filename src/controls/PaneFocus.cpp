#include "controls/PaneFocus.h"

#include "controls/PaneWalk.h"
#include "controls/Splitter.h"

#include <QApplication>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

using Widgets = std::vector<QWidget*>;

// The control and what is in it, in the order of the focus.
Widgets FocusChain(QWidget* control)
{
    Widgets chain{control};
    for (auto* next = control->nextInFocusChain(); next && next != control; next = next->nextInFocusChain())
        if (control->isAncestorOf(next)) chain.push_back(next);
    return chain;
}

bool TakesFocus(const QWidget& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isVisible() && widget.isEnabled();
}

// Qt orders only what can have the focus itself; one widget else would break the chain.
bool HasPlaceInOrder(const QWidget* widget)
{
    return widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr;
}

// The leaf that the focus is in.
const Pane* FocusedLeaf(const Panes& top)
{
    for (const auto* widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
        if (const auto* const pane = top.FindChildControl(widget)) return pane;
    return nullptr;
}

void AddTabStops(const Panes& panes, Widgets& stops)
{
    for (const auto& pane : panes) {
        if (pane->Index() == 2) {
            if (const auto* const splitter = dynamic_cast<Splitter*>(panes.Splitter()))
                stops.push_back(splitter->Bar());
        }
        if (pane->Child()) {
            AddTabStops(*pane->Child(), stops);
        } else if (auto* const control = pane->Control()) {
            const auto chain = FocusChain(control);
            std::copy_if(chain.begin(), chain.end(), std::back_inserter(stops), HasPlaceInOrder);
        }
    }
}

}  // namespace

bool FocusControl(QWidget* control)
{
    if (control == nullptr || control->size().isEmpty()) return false;
    auto* const last = control->focusWidget();
    if (last && TakesFocus(*last)) {
        last->setFocus(Qt::OtherFocusReason);
        return true;
    }
    for (auto* const widget : FocusChain(control)) {
        if (!TakesFocus(*widget)) continue;
        widget->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

bool FocusNextPane(const Panes& top, bool isForward)
{
    const auto* const start = FocusedLeaf(top);
    const Pane* from = start;
    for (auto tries = VisibleLeaves(top).size(); tries > 0; --tries) {
        const auto* const next = NextLeaf(top, from, isForward);
        if (!next || next == start) return false;
        if (FocusControl(next->Control())) return true;
        from = next;
    }
    return false;
}

void OrderTabs(const Panes& top)
{
    Widgets stops;
    AddTabStops(top, stops);
    for (std::size_t i = 1; i < stops.size(); ++i) QWidget::setTabOrder(stops[i - 1], stops[i]);
}
