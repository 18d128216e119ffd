#include "stats/PanelItems.h"

#include <algorithm>

void PanelItems::Click(std::size_t item)
{
    if (item == All)
        ClickAll();
    else if (item < Panels)
        ClickPanel(item);
}

void PanelItems::ClickAll()
{
    const bool mark = !m_all;
    MarkAll(mark);
    for (std::size_t panel = 0; panel < Panels; ++panel)
        if (m_marks[panel] != mark) ClickPanel(panel);
}

void PanelItems::ClickPanel(std::size_t panel)
{
    const bool mark = !m_marks[panel];
    m_marks[panel] = mark;
    m_host.CheckItem(panel, mark);
    m_host.ShowPanel(panel, mark);
    SyncAllPanelsItem(mark);
}

void PanelItems::SyncAllPanelsItem(bool mark)
{
    const bool isAgreed =
        std::all_of(m_marks.begin(), m_marks.end(), [mark](bool other) { return other == mark; });
    if (isAgreed) MarkAll(mark);
}

void PanelItems::MarkAll(bool mark)
{
    m_all = mark;
    m_host.CheckItem(All, mark);
}
