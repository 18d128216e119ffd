#include "controls/Panes.h"

#include "controls/SplitterCore.h"

#include <algorithm>

namespace {

template <class Items, class Test>
Pane* FirstWhere(const Items& items, const Test& test)
{
    const auto found = std::find_if(items.begin(), items.end(), test);
    return found == items.end() ? nullptr : found->get();
}

}  // namespace

Panes::Panes(SplitterCore& splitter) : m_splitter(&splitter)
{
    for (const int index : {1, 2}) m_items.push_back(std::make_unique<Pane>(*this, index));
}

Pane* Panes::Item(int index) const
{
    return FirstWhere(m_items, [index](const auto& pane) { return pane->Index() == index; });
}

Pane* Panes::Item(std::string_view key) const
{
    return FirstWhere(m_items, [key](const auto& pane) { return pane->Key() == key; });
}

Pane* Panes::TopPane() const
{
    return m_parentPane ? m_parentPane->TopPane() : nullptr;
}

bool Panes::Enabled() const
{
    return m_parentPane == nullptr || m_parentPane->Enabled();
}

void Panes::SetEnabled(bool enabled)
{
    if (m_parentPane) m_parentPane->SetEnabled(enabled);
}

bool Panes::Visible() const
{
    return m_parentPane == nullptr || m_parentPane->Visible();
}

Panes* Panes::FromControl(const QWidget* control) const
{
    auto* const top = TopPane();
    auto* const pane = top ? top->FindChildControl(control) : nullptr;
    return pane ? pane->Parent() : nullptr;
}

Pane* Panes::FindChildControl(const QWidget* control) const
{
    for (const auto& pane : m_items) {
        if (auto* const found = pane->FindChildControl(control)) return found;
    }
    return nullptr;
}

std::int64_t Panes::Width() const
{
    return m_splitter->Width();
}

Done Panes::SetWidth(std::int64_t width)
{
    if (m_parentPane) return m_parentPane->SetWidth(width);
    if (width >= 0) m_splitter->SetOwnWidth(width);
    return {};
}

std::int64_t Panes::Height() const
{
    return m_splitter->Height();
}

Done Panes::SetHeight(std::int64_t height)
{
    if (m_parentPane) return m_parentPane->SetHeight(height);
    if (height >= 0) m_splitter->SetOwnHeight(height);
    return {};
}

void Panes::Clear()
{
    if (m_parentPane && m_parentPane->m_child == this) m_parentPane->m_child = nullptr;
    m_parentPane = nullptr;
    for (const auto& pane : m_items) {
        if (auto* const child = pane->m_child) child->Clear();
    }
    m_items.clear();
}
