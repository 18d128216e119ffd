#pragma once

#include "cache/CacheScan.h"
#include "cache/CacheTreeModel.h"
#include "cache/CacheTreeView.h"
#include "server/ConnectRoutine.h"
#include "shell/ProcessState.h"
#include "shell/StatusPanels.h"

#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

#include <string>

// What the window uses of the desktop. Tests bring their own.
struct Desktop {
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
};

// The main window: the program's driver. It holds the controls and one collaborator for each duty, forwards
// to them what the user does and shows what they say.
class frmMain : public QMainWindow, public ScanScreen, public StatusLine, public ConnectionDisplay {
    Q_OBJECT

public:
    // Loads the window. `state` and what `desktop` refers to must outlive it.
    frmMain(ProcessState& state, const Desktop& desktop);

    // Brings the window up, makes the first connection and scans. Returns when that has ended.
    void Display();

    void ConnectToServer();
    void Rescan();
    void LoadInfo2();
    void ExpandAll();
    void RefreshFileNode();  // reads the selected URL's record again
    void Stop();             // ends a running scan after the entry in progress
    void Exit() { close(); }

    // True once the window was closed. A close in the middle of an operation ends that first.
    bool IsUnloaded() const { return m_isUnloaded; }

    bool IsConnected() const { return m_connection.IsConnected(); }

    void SetStatus(std::string_view text) override { StatusBar->SetStatus(text); }
    void SetConnStatus(std::string_view text) override { StatusBar->SetConnStatus(text); }
    void SetCaption(const std::string& text) override;
    void SetTopStrip(const std::string& text) override { lblTopStrip->ShowText(text); }
    std::string Caption() const override { return m_caption; }
    void HideTree() override;
    void ShowTree() override;
    void ForgetContents() override;
    void ShowContents() override;

    QToolBar* const Toolbar;
    StatusPanels* const StatusBar;
    QFrame* const TopStrip;
    PlainLabel* const lblTopStrip;
    QFrame* const spltMain;
    CacheTreeView* const trvFiles;
    QMenu* const mnuPopUp_Tree;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Operation;

    void Load();
    void Unload();
    void SelectStartServer();
    void SelectOfferedSites();

    // In frmMainControls.cpp:
    void BuildClientArea();
    void BuildMenuBar();
    void BuildPopUp();
    void BuildToolbar();
    QAction* AddCommand(QWidget* holder, const char* name, const QString& caption,
                        void (frmMain::*command)());
    void LayOutClientArea();
    void ShowPopUp(const QPoint& globalPlace);
    NodeId SelectedNode() const;

    ProcessState& m_state;
    const Desktop m_desktop;
    CacheScan m_scan;
    ConnectRoutine m_connection;
    CacheTreeModel m_model;

    std::string m_caption;
    int m_operations = 0;  // that run on the stack
    bool m_isClosing = false;
    bool m_isUnloaded = false;
    bool m_treeHadFocus = false;
};
