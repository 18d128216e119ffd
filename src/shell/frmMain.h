#pragma once

#include "cache/CacheScan.h"
#include "cache/CacheTreeModel.h"
#include "cache/CacheTreeView.h"
#include "controls/CustomToolBar.h"
#include "export/frmReport.h"
#include "help/HelpKey.h"
#include "help/frmHelp.h"
#include "ops/CacheRemoval.h"
#include "ops/frmFileInfo.h"
#include "server/ConnectRoutine.h"
#include "server/SelectSites.h"
#include "shell/AutoRefresh.h"
#include "shell/InfoArea.h"
#include "shell/ProcessState.h"
#include "shell/StatusPanels.h"
#include "shell/WindowPlacer.h"
#include "stats/CountersConsole.h"

#include <QMainWindow>
#include <QMenu>

#include <functional>
#include <string>
#include <vector>

// The main window: the program's driver. It holds the controls and one collaborator for each duty, forwards
// to them what the user does and shows what they say.
class frmMain : public QMainWindow,
                public ScanScreen,
                public StatusLine,
                public ConnectionDisplay,
                public SelectSitesHost,
                private RemovalScreen {
    Q_OBJECT

public:
    // Loads the window. `state` and what `desktop` refers to must outlive it.
    frmMain(ProcessState& state, const Desktop& desktop);

    // Brings the window up, makes the first connection and scans. Returns when that has ended.
    void Display();

    // Asks for a server and its web sites, and scans them when the user confirms. Connects when another
    // server was chosen, there is no connection, or `force` is set.
    void SelectSites(bool force);
    void ConnectToServer() override;
    void Rescan() override;
    void LoadInfo2();
    void ExpandAll();
    void UpdatePerfSummary();
    void RefreshFileNode();  // reads the selected URL's record again
    void RemoveNodeCache();  // of the selected node
    void CleanCache();       // of the whole server
    void ResetCounters();
    void ShowCounters();                 // the counters console
    void ShowFileDetails(bool analyse);  // of the selected URL
    void ShowReport();                   // of the last scan
    void ExportToDatabase();             // likewise
    void CustomizeToolbar();
    void ShowHelp();
    void OpenWebSite();
    void ShowAbout();
    void Stop();  // ends a running scan after the entry in progress
    void Exit() { close(); }
    void SavePosition();  // placement, panels, views and interval, whatever the save switches say
    void ShowOptions();

    // True once the window was closed. A close in the middle of an operation ends that first.
    bool IsUnloaded() const { return m_isUnloaded; }

    bool IsConnected() const override { return m_connection.IsConnected(); }
    bool IsClosing() const override { return m_isClosing; }

    void SetStatus(std::string_view text) override { StatusBar->SetStatus(text); }
    void SetConnStatus(std::string_view text) override { StatusBar->SetConnStatus(text); }
    void SetCaption(const std::string& text) override;
    void SetTopStrip(const std::string& text) override { lblTopStrip->ShowText(text); }
    std::string Caption() const override { return m_caption; }
    void HideTree() override;
    void ShowTree() override;
    void ForgetContents() override;
    void ShowContents() override;
    void ShowSelection() override;
    void SetSiteCount(int count) override { m_connection.SetSiteCount(count); }
    void FocusTree() override { trvFiles->setFocus(); }

    CustomToolBar* const Toolbar;
    StatusPanels* const StatusBar;
    QFrame* const TopStrip;
    PlainLabel* const lblTopStrip;
    Splitter* const spltMain;
    CacheTreeView* const trvFiles;
    QMenu* const mnuPopUp_Tree;
    QMenu* const mnuPopUp_Perf;
    AutoRefresh* tmrStats = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Operation;

    // A part of the window that can be hidden; its menu item's check mark is the state that is kept.
    struct ViewRow {
        const char* setting;
        QAction* item;
        std::function<void(bool)> show;
    };

    void Load();
    void Unload();
    void RestoreSettings();
    void SaveViews();
    void ShowView(const ViewRow& row, bool isShown);
    void SelectStartServer();
    void TakeFirst(const FirstConnection& first);

    void NoteScan();
    bool IsOccupied() const;  // with something that works on the tree or on the connection

    // In frmMainControls.cpp:
    void BuildClientArea();
    void BuildToolbar();
    void ClickToolbar(const QString& key);
    void LayOutClientArea();

    // In frmMainMenus.cpp:
    QMenu* AddMenu(QMenu* parent, const char* name, const QString& caption);
    QAction* AddCommand(QWidget* holder, const char* name, const QString& caption,
                        std::function<void()> command);
    QAction* AddView(QMenu* menu, const char* name, const QString& caption);
    void BuildMenuBar();
    void BuildFileMenu();
    void BuildViewMenu();
    void BuildToolsMenu();
    void BuildHelpMenu();
    void AddPaneKeys();
    static void AddSeparator(QMenu* menu, const char* name);

    // In frmMainPopUps.cpp:
    void BuildPopUps();
    void ShowPopUp(const QPoint& globalPlace);

    // In frmMainCommands.cpp:
    std::optional<RemovalTarget> SelectedTarget() const override;
    void TakeOut(const RemovalTarget& target) override;
    NodeId SelectedNode() const;

    // In frmMainDialogs.cpp:
    frmHelp& Help();
    void TellConsole();
    std::unique_ptr<CacheSnapshot> LastScan() const;  // null when nothing was scanned

    ProcessState& m_state;
    const Desktop m_desktop;
    CacheScan m_scan;
    InfoArea m_info;
    ConnectRoutine m_connection;
    ServerSelection m_selection;
    CacheTreeModel m_model;
    CacheRemoval m_removal;
    WindowPlacer m_placer;
    HelpBook m_helpBook;
    std::unique_ptr<frmHelp> m_help;             // made when it is first wanted
    std::unique_ptr<CountersConsole> m_console;  // likewise
    std::unique_ptr<frmReport> m_report;         // likewise
    HelpKey m_helpKey;
    frmFileInfo m_details;
    std::vector<ViewRow> m_views;

    std::string m_caption;
    bool m_isExporting = false;
    int m_operations = 0;  // that run on the stack
    bool m_isClosing = false;
    bool m_isUnloaded = false;
    bool m_treeHadFocus = false;
};
