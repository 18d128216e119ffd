#pragma once

#include <array>
#include <cstddef>

// What the items of the Panels menu act on.
class PanelItemsHost {
public:
    virtual ~PanelItemsHost() = default;
    virtual void CheckItem(std::size_t item, bool isChecked) = 0;
    virtual void ShowPanel(std::size_t panel, bool isShown) = 0;  // with its pane in the splitters
};

// The check marks of the Panels menu, mnuInfo_Item(0) to (5), which begin set: the first four items show and
// hide a panel each, the last all that differ from it. It follows the four when they all agree.
class PanelItems {
public:
    static constexpr std::size_t Panels = 4;
    static constexpr std::size_t Separator = 4;
    static constexpr std::size_t All = 5;

    explicit PanelItems(PanelItemsHost& host) : m_host(host) {}

    void Click(std::size_t item);
    bool IsChecked(std::size_t item) const { return item == All ? m_all : item < Panels && m_marks[item]; }

private:
    void ClickPanel(std::size_t panel);
    void ClickAll();
    void SyncAllPanelsItem(bool mark);
    void MarkAll(bool mark);

    PanelItemsHost& m_host;
    std::array<bool, Panels> m_marks{true, true, true, true};
    bool m_all = true;
};
