// The main window's menus. The views that can be hidden are named here and nowhere else.
#include "shell/frmMain.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenuBar>
#include <QShortcut>

namespace {

// What the menu key does where a keyboard has none.
void AskForMenu(QWidget& focused)
{
    const auto place = focused.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focused.mapToGlobal(place));
    QCoreApplication::sendEvent(&focused, &event);
}

}  // namespace

void frmMain::AddSeparator(QMenu* menu, const char* name)
{
    menu->addSeparator()->setObjectName(QLatin1String(name));
}

QMenu* frmMain::AddMenu(QMenu* parent, const char* name, const QString& caption)
{
    auto* const menu = parent == nullptr ? menuBar()->addMenu(caption) : parent->addMenu(caption);
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QAction* frmMain::AddCommand(QWidget* holder, const char* name, const QString& caption,
                             std::function<void()> command)
{
    auto* const action = new QAction(caption, holder);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, [run = std::move(command)] { run(); });
    holder->addAction(action);
    return action;
}

QAction* frmMain::AddView(QMenu* menu, const char* name, const QString& caption)
{
    auto* const item = menu->addAction(caption);
    item->setObjectName(QLatin1String(name));
    item->setCheckable(true);
    item->setChecked(true);
    return item;
}

void frmMain::BuildMenuBar()
{
    BuildFileMenu();
    BuildViewMenu();
    BuildToolsMenu();
    BuildHelpMenu();
    AddPaneKeys();
}

// From pane to pane; F6 alone expands the tree. And to the menu of what has the focus.
void frmMain::AddPaneKeys()
{
    const auto add = [this](const QKeySequence& key, bool isForward) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, isForward] { m_info.FocusPane(isForward); });
    };
    add(Qt::CTRL | Qt::Key_F6, true);
    add(Qt::SHIFT | Qt::Key_F6, false);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_F6, false);
    connect(new QShortcut(Qt::SHIFT | Qt::Key_F10, this), &QShortcut::activated, this, [this] {
        if (focusWidget() != nullptr) AskForMenu(*focusWidget());
    });
}

void frmMain::BuildFileMenu()
{
    auto* const menu = AddMenu(nullptr, "mnuFile", tr("&File"));
    AddCommand(menu, "mnuFile_Connect", tr("&Connect..."), [this] {
        SelectSites(true);
    })->setShortcut(Qt::Key_F4);
    AddCommand(menu, "mnuFile_Sites", tr("&Select web sites..."), [this] {
        SelectSites(false);
    })->setShortcut(Qt::CTRL | Qt::Key_F4);
    AddSeparator(menu, "mnuFile_Sep1");
    AddCommand(menu, "mnuFile_Rescan", tr("&Rescan IIS"), [this] { Rescan(); })->setShortcut(Qt::Key_F5);
    AddCommand(menu, "mnuFile_ExpandAll", tr("&Expand all nodes"), [this] {
        ExpandAll();
    })->setShortcut(Qt::Key_F6);
    AddCommand(menu, "mnuFile_Report", tr("Re&port..."), [this] { ShowReport(); });
    AddCommand(menu, "mnuFile_Export", tr("Export to &database..."), [this] { ExportToDatabase(); });
    AddSeparator(menu, "mnuFile_Sep2");
    AddCommand(menu, "mnuFile_Exit", tr("&Exit"), [this] { Exit(); });
}

void frmMain::BuildViewMenu()
{
    auto* const menu = AddMenu(nullptr, "mnuView", tr("&View"));
    auto* const toolbars = AddMenu(menu, "mnuView_Toolbars", tr("&Toolbars"));
    auto* const toolbar = AddView(toolbars, "mnuToolbars_Main", tr("&Standard"));
    toolbar->setShortcut(Qt::CTRL | Qt::Key_T);
    AddSeparator(toolbars, "mnuToolbars_Sep1");
    AddCommand(toolbars, "mnuToolbars_Customize", tr("&Customize..."), [this] { CustomizeToolbar(); });
    auto* const statusBar = AddView(menu, "mnuView_StatusBar", tr("Status &Bar"));
    statusBar->setShortcut(Qt::CTRL | Qt::Key_B);
    AddSeparator(menu, "mnuView_Sep2");
    auto* const toolTips = AddView(menu, "mnuView_ToolTips", tr("&Summary Tooltips"));
    m_views = {{"ViewToolbar", toolbar, [this](bool isShown) { Toolbar->setVisible(isShown); }},
               {"ViewStatusBar", statusBar, [this](bool isShown) { StatusBar->setVisible(isShown); }},
               {"ViewTooltips", toolTips, [this](bool isShown) { m_info.ShowToolTips(isShown); }}};
    AddSeparator(menu, "mnuView_Sep1");
    m_info.BuildPanelsMenu(*AddMenu(menu, "mnuView_Info", tr("&Panels")));
    for (const auto& row : m_views)
        connect(row.item, &QAction::triggered, this, [this, &row](bool isShown) { ShowView(row, isShown); });
}

void frmMain::BuildToolsMenu()
{
    auto* const menu = AddMenu(nullptr, "mnuTools", tr("&Tools"));
    AddCommand(menu, "mnuTools_PerfCounters", tr("&Performance counters..."), [this] { ShowCounters(); });
    AddCommand(menu, "mnuTools_RstPerfCounters", tr("&Reset Performance counters"),
               [this] { ResetCounters(); });
    AddSeparator(menu, "mnuTools_Sep1");
    AddCommand(menu, "mnuTools_CleanCache", tr("&Full cache cleanup"), [this] {
        CleanCache();
    })->setShortcut(Qt::CTRL | Qt::Key_F8);
    AddSeparator(menu, "mnuTools_Sep2");
    auto* const refresh = AddMenu(menu, "mnuTools_AutoUpdateStats", tr("&Auto-refresh statistics"));
    tmrStats = new AutoRefresh(refresh);
    connect(tmrStats, &AutoRefresh::Due, this, &frmMain::UpdatePerfSummary);
    m_info.UseTimer([this](bool isEnabled) { tmrStats->SetEnabled(isEnabled); });
    AddSeparator(menu, "mnuTools_Sep3");
    AddCommand(menu, "mnuTools_Save", tr("&Save position"), [this] { SavePosition(); });
    AddCommand(menu, "mnuTools_Options", tr("&Options..."), [this] { ShowOptions(); });
}

void frmMain::BuildHelpMenu()
{
    auto* const menu = AddMenu(nullptr, "mnuHelp", tr("&Help"));
    AddCommand(menu, "mnuHelp_Contents", tr("&Contents..."), [this] { ShowHelp(); })->setShortcut(Qt::Key_F1);
    AddCommand(menu, "mnuHelp_WebSite", tr("Zentrel &Website"), [this] { OpenWebSite(); });
    AddSeparator(menu, "mnuHelp_Sep1");
    AddCommand(menu, "mnuHelp_About", tr("&About..."), [this] { ShowAbout(); });
}
