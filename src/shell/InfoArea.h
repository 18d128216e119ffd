#pragma once

#include "cache/FileTypeList.h"
#include "cache/NodeInfo.h"
#include "contracts/PerformanceSteps.h"
#include "controls/ActivePanel.h"
#include "controls/Splitter.h"
#include "controls/modSystemImageList.h"
#include "shell/Desktop.h"
#include "shell/ProcessState.h"
#include "stats/BalloonTips.h"
#include "stats/InfoPanel.h"
#include "stats/PanelArrangement.h"
#include "stats/PanelItems.h"
#include "stats/PerfPanel.h"
#include "stats/PerfSummary.h"

#include <QMenu>

#include <array>
#include <functional>

// The area below the top strip: the tree and the four information panels in their splitters, and what the
// panels show. It fills `spltMain`; that, the tree and all that is given must outlive it.
class InfoArea : public PerformanceSteps, private PanelItemsHost {
public:
    InfoArea(Splitter& spltMain, QWidget& trvFiles, ProcessState& state, const Desktop& desktop,
             std::function<std::string()> caption);
    ~InfoArea() override;

    void ClickPanelItem(std::size_t item) { m_items.Click(item); }  // see PanelItems
    // Fills the menu with the items mnuInfo_Item(0) to (5), which show and hide the panels.
    void BuildPanelsMenu(QMenu& menu);

    void ClearInfo();     // all that a scan found
    void ShowContents();  // the file types and totals that it found
    void SetCacheInfo();
    void ShowNode(NodeId node);
    // What the right mouse button over the performance summary calls.
    void UsePerfMenu(std::function<void(const QPoint& globalPlace)> show);
    void UseTimer(std::function<void(bool)> enableTimer) { m_enableTimer = std::move(enableTimer); }
    void ShowToolTips(bool isVisible) { m_tips.SetVisible(isVisible); }
    std::array<std::byte, 8> PanelLayout() const;  // as it is saved
    bool FocusPane(bool isForward) const;          // the next or previous pane; false when there is none

    void CloseQuery() override;
    void ForgetCollectionWarning() override { m_summary.ForgetCollectionWarning(); }
    void EnableTimer(bool isEnabled) override;
    Done OpenQuery() override;
    void InitPerfCounters() override;
    void BuildPerfRows() override { m_summary.BuildPerfRows(); }
    void ResetToolTips() override;
    void UpdatePerfSummary() override { m_summary.UpdatePerfSummary(); }
    void ShowNoFigures() override { m_summary.ShowNoFigures(); }

private:
    void CheckItem(std::size_t item, bool isChecked) override;
    void ShowPanel(std::size_t panel, bool isShown) override;
    ActivePanel& Panel(std::size_t index) const { return *m_panels[index]; }

    Splitter& m_main;
    ProcessState& m_state;
    const Desktop m_desktop;
    const std::function<std::string()> m_caption;
    modSystemImageList m_icons;

    const std::array<ActivePanel*, PanelItems::Panels>
        m_panels;                 // apPane(0) to (3); their splitters' children
    FileTypeList* const m_types;  // lstFileTypes, panel 0's child
    InfoPanel m_totals;
    InfoPanel m_file;
    PerfPanel m_perf;
    PerfSummary m_summary;
    BalloonTips m_tips;
    PanelItems m_items{*this};
    std::array<QAction*, PanelItems::All + 1> m_actions{};
    std::function<void(bool)> m_enableTimer;
};
