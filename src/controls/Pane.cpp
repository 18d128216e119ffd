#include "controls/Pane.h"

#include "controls/ControlErrors.h"
#include "controls/Panes.h"
#include "controls/SplitterCore.h"

#include <algorithm>

namespace {

constexpr std::string_view kKeys[2][2] = {{"Left", "Right"}, {"Top", "Bottom"}};  // by orientation and index

}  // namespace

std::string_view Pane::Key() const
{
    return kKeys[Splitter()->Orientation()][m_index - 1];
}

Pane* Pane::Sibling() const
{
    const auto isOther = [this](const auto& pane) { return pane.get() != this; };
    const auto found = std::find_if(m_parent->begin(), m_parent->end(), isOther);
    return found == m_parent->end() ? nullptr : found->get();
}

Pane* Pane::ParentPane() const
{
    return m_parent->Parent();
}

Pane* Pane::TopPane()
{
    auto* const top = m_parent->TopPane();
    return top ? top : this;
}

SplitterCore* Pane::Splitter() const
{
    return m_parent->Splitter();
}

QWidget* Pane::Control() const
{
    return Splitter()->Slot(m_index);
}

Done Pane::SetControl(QWidget* control)
{
    return Splitter()->SetControls(m_index, control);
}

// ---- size

std::int64_t Pane::Length(bool isWidth) const
{
    const auto layout = Splitter()->CurrentLayout();
    const auto& rect = layout.panes[static_cast<std::size_t>(m_index - 1)];
    return isWidth ? rect.width : rect.height;
}

Done Pane::SetLength(bool isWidth, std::int64_t length)
{
    if (length < 0) {
        return Fail(ControlError::InvalidArgument, "Splitter.Pane",
                    std::string(ControlError::InvalidArgumentText));
    }
    const bool isMainAxis = isWidth == (Splitter()->Orientation() == 0);
    if (!isMainAxis) return isWidth ? m_parent->SetWidth(length) : m_parent->SetHeight(length);
    SetEnabled(true);
    Splitter()->GiveRoom(m_index, length);
    return {};
}

std::int64_t Pane::Width() const
{
    return Length(true);
}

Done Pane::SetWidth(std::int64_t width)
{
    return SetLength(true, width);
}

std::int64_t Pane::Height() const
{
    return Length(false);
}

Done Pane::SetHeight(std::int64_t height)
{
    return SetLength(false, height);
}

// ---- shown and not shown

void Pane::SetEnabled(bool enabled)
{
    if (m_isEnabled == enabled) return;
    m_isEnabled = enabled;
    if (!enabled) KeepTabStop();

    const auto* const sibling = Sibling();
    if (sibling && sibling->Enabled()) {
        Splitter()->SetVisiblePanes(enabled ? 0 : sibling->Index());
    } else if (enabled) {
        m_parent->SetEnabled(true);
        Splitter()->SetVisiblePanes(m_index);
    } else {
        m_parent->SetEnabled(false);
    }
    if (enabled) RestoreTabStop();
}

void Pane::KeepTabStop()
{
    auto* const control = Control();
    if (!control) return;
    m_tabStop = Splitter()->TabStop(control);
    Splitter()->SetTabStop(control, false);
}

void Pane::RestoreTabStop()
{
    if (auto* const control = Control(); control && m_tabStop) Splitter()->SetTabStop(control, *m_tabStop);
    m_tabStop.reset();
}

bool Pane::Visible() const
{
    return m_isEnabled && m_parent->Visible();
}

// ---- the tree

Pane* Pane::FromControl(const QWidget* control)
{
    return TopPane()->FindChildControl(control);
}

Pane* Pane::FindChildControl(const QWidget* control)
{
    if (!control) return nullptr;
    if (Control() == control) return this;
    return m_child ? m_child->FindChildControl(control) : nullptr;
}

void Pane::ControlChanged(Panes* child)
{
    m_tabStop.reset();
    if (m_child && m_child != child && m_child->m_parentPane == this) m_child->m_parentPane = nullptr;
    m_child = child;
    if (!child) return;
    if (auto* const before = child->m_parentPane; before && before != this) before->m_child = nullptr;
    child->m_parentPane = this;
}
