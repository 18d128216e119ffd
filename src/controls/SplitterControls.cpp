// Which controls stand in a splitter's panes, and how a splitter is kept.
#include "controls/SplitterCore.h"

#include "controls/ControlErrors.h"
#include "controls/PropertyBag.h"

#include <algorithm>
#include <utility>

namespace {

bool IsPane(int index)
{
    return index == 1 || index == 2;
}

auto Refuse(std::uint32_t code, std::string_view text)
{
    return Fail(code, "Splitter Control", std::string(text));
}

std::string PaneProperty(const Pane& pane)
{
    return "PaneControl(" + std::to_string(pane.Index()) + ")";
}

}  // namespace

Result<QWidget*> SplitterCore::Controls(int index) const
{
    if (!IsPane(index)) return Refuse(ControlError::OutOfRange, ControlError::OutOfRangeText);
    return Slot(index);
}

bool SplitterCore::IsContained(const QWidget* control) const
{
    const auto contained = ContainedControls();
    return std::find(contained.begin(), contained.end(), control) != contained.end();
}

Done SplitterCore::SetControls(int index, QWidget* control)
{
    if (!IsPane(index)) return Refuse(ControlError::OutOfRange, ControlError::OutOfRangeText);
    auto* const wanted = control ? control : Placeholder(index);
    if (wanted == Slot(index)) return {};
    if (control && !IsContained(control))
        return Refuse(ControlError::NotContained, ControlError::NotContainedText);
    ShowPlaceholder(index, control == nullptr);
    Take(index, wanted);
    m_changed.Mark("Controls");
    Refresh();
    return {};
}

Done SplitterCore::SetLeftOrTopCtl(QWidget* control)
{
    auto done = SetControls(1, control);
    if (done) m_changed.Mark("LeftOrTopCtl");
    return done;
}

Done SplitterCore::SetRightOrBottomCtl(QWidget* control)
{
    auto done = SetControls(2, control);
    if (done) m_changed.Mark("RightOrBottomCtl");
    return done;
}

void SplitterCore::Take(int index, QWidget* control)
{
    m_slots[static_cast<std::size_t>(index - 1)] = control;
    auto* const pane = m_panes.Item(index);
    if (!pane) return;
    pane->SetControlName(control == Placeholder(index) ? std::string() : ControlName(control));
    pane->ControlChanged(PanesOf(control));
}

// A control without a name is nobody's.
void SplitterCore::BindByName(Pane& pane)
{
    const auto& wanted = pane.ControlName();
    if (wanted.empty()) return;
    for (auto* const control : ContainedControls()) {
        if (ControlName(control) == wanted && control != pane.Control()) Take(pane.Index(), control);
    }
}

void SplitterCore::Shown()
{
    for (const auto& pane : m_panes) {
        const int index = pane->Index();
        BindByName(*pane);
        auto& slot = m_slots[static_cast<std::size_t>(index - 1)];
        if (!slot) slot = Placeholder(index);
        ShowPlaceholder(index, slot == Placeholder(index));
    }
    Refresh();
}

void SplitterCore::Hidden()
{
    for (const int index : {1, 2}) {
        ShowPlaceholder(index, false);
        auto& slot = m_slots[static_cast<std::size_t>(index - 1)];
        if (slot == Placeholder(index)) slot = nullptr;
    }
}

void SplitterCore::Forget(const QWidget* control)
{
    if (!control || (Slot(1) != control && Slot(2) != control)) return;
    for (const int index : {1, 2}) {
        if (Slot(index) != control) continue;
        ShowPlaceholder(index, true);
        Take(index, Placeholder(index));
    }
    m_changed.Mark("Controls");
    Refresh();  // only now: a control may be in both panes
}

void SplitterCore::End()
{
    m_slots = {};
    m_panes.Clear();
}

// ---- persistence

void SplitterCore::Load(const PropertyBag& bag)
{
    m_changed.Clear();
    m_isLoading = true;
    const SplitterShape standard;
    m_shape.splitterPosMin = standard.splitterPosMin;
    m_shape.splitterPosMax = standard.splitterPosMax;
    SetOrientation(bag.ReadInt("Orientation", standard.orientation));
    SetSplitterSize(bag.ReadInt("SplitterSize", standard.splitterSize));
    SetSplitterPosMax(bag.ReadInt("SplitterPosMax", standard.splitterPosMax));
    SetSplitterPosMin(bag.ReadInt("SplitterPosMin", standard.splitterPosMin));
    SetSplitterPos(bag.ReadInt("SplitterPos", 50));
    SetSplitterColor(bag.ReadColor("SplitterColor", kStandardSplitterColor));
    SetBackColor(bag.ReadColor("BackColor", kStandardBackColor));
    SetCursorStyle(bag.ReadInt("CursorStyle", 0));
    SetEnabled(bag.ReadBool("Enabled", true));
    SetVisiblePanes(bag.ReadInt("VisiblePanes", standard.visiblePanes));
    m_autoInit = bag.ReadBool("AutoInit", false);
    const int count = bag.ReadInt("PaneCount", 2);
    for (const auto& pane : m_panes) {
        if (pane->Index() <= count) pane->SetControlName(bag.ReadText(PaneProperty(*pane), {}));
    }
    m_isLoading = false;
    Refresh();
}

void SplitterCore::Save(PropertyBag& bag) const
{
    const SplitterShape standard;
    bag.WriteInt("Orientation", m_shape.orientation, standard.orientation);
    bag.WriteInt("SplitterSize", m_shape.splitterSize, standard.splitterSize);
    bag.WriteInt("SplitterPosMax", m_shape.splitterPosMax, standard.splitterPosMax);
    bag.WriteInt("SplitterPosMin", m_shape.splitterPosMin, standard.splitterPosMin);
    bag.WriteFloat("SplitterPos", m_shape.splitterPos, standard.splitterPos);
    bag.WriteColor("SplitterColor", m_splitterColor, kStandardSplitterColor);
    bag.WriteColor("BackColor", m_backColor, kStandardBackColor);
    bag.WriteInt("CursorStyle", m_cursorStyle, 0);
    bag.WriteBool("Enabled", m_isEnabled, true);
    bag.WriteInt("VisiblePanes", m_shape.visiblePanes, standard.visiblePanes);
    bag.WriteBool("AutoInit", m_autoInit, false);
    bag.WriteInt("PaneCount", m_panes.Count(), 2);
    for (const auto& pane : m_panes) bag.WriteText(PaneProperty(*pane), pane->ControlName(), {});
}
