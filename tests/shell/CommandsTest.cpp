// The main window's commands: where they are reached, and what each one does.
#include "WindowRig.h"

#include "server/frmServer.h"
#include "settings/SettingsKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <iostream>
#include <map>

namespace {

// ---- where they are reached and what they do

struct Command {
    std::vector<const char*> items;  // of the menus
    const char* key;
    const char* button;   // or the entry of a button's menu
    const char* effect;   // all that changes, as Changes tells it
    bool inTree = false;  // the key does it in the tree alone
};

const std::vector<Command>& Commands()
{
    static const std::vector<Command> commands{
        {{"mnuFile_Connect"},
         "F4",
         "Connect",
         "connection=  Connected to here dialog=frmServer file=File Information status=Found: 3 Files "},
        {{"mnuFile_Sites"}, "Ctrl+F4", "", "dialog=frmServer file=File Information status=Found: 3 Files "},
        {{"mnuFile_Rescan", "mnuPopUp_Rescan"},
         "F5",
         "Refresh",
         "file=File Information status=Found: 3 Files "},
        {{}, "Esc", "Stop", "stop=set "},
        {{"mnuFile_ExpandAll"}, "F6", "", "folder=expanded "},
        {{"mnuFile_Report"}, "", "", "shown=frmReport "},
        {{"mnuFile_Export"}, "", "", "dialog=frmDbExport "},
        {{"mnuFile_Exit"}, "", "", "window=unloaded "},
        {{"mnuToolbars_Main"}, "Ctrl+T", "", "Toolbar=hidden mnuToolbars_Main=off "},
        {{"mnuToolbars_Customize"}, "", "", "dialog=CustomizeDialog "},
        {{"mnuView_StatusBar"}, "Ctrl+B", "", "StatusBar=hidden mnuView_StatusBar=off "},
        {{"mnuView_ToolTips"}, "", "", "mnuView_ToolTips=off "},
        {{"mnuInfo_Item(0)"}, "Shift+F1", "Panels(0)", "apPane(0)=hidden mnuInfo_Item(0)=off "},
        {{"mnuInfo_Item(1)"}, "Shift+F2", "Panels(1)", "apPane(1)=hidden mnuInfo_Item(1)=off "},
        {{"mnuInfo_Item(2)"}, "Shift+F3", "Panels(2)", "apPane(2)=hidden mnuInfo_Item(2)=off "},
        {{"mnuInfo_Item(3)"}, "Shift+F4", "Panels(3)", "apPane(3)=hidden mnuInfo_Item(3)=off "},
        {{"mnuInfo_Item(5)"},
         "Shift+F9",
         "",
         "apPane(0)=hidden apPane(1)=hidden apPane(2)=hidden apPane(3)=hidden mnuInfo_Item(0)=off "
         "mnuInfo_Item(1)=off mnuInfo_Item(2)=off mnuInfo_Item(3)=off mnuInfo_Item(5)=off "},
        {{"mnuTools_PerfCounters"}, "", "", "shown=CountersConsole "},
        {{"mnuTools_RstPerfCounters", "mnuPopUp_RstPerf"}, "", "", "counters=anew "},
        {{"mnuTools_CleanCache"}, "Ctrl+F8", "", "boxes=1 list.htm=gone page.htm=gone "},
        {{"mnuRefresh_Item(0)"}, "", "", "interval=1000 mnuRefresh_Item(0)=on mnuRefresh_Item(1)=off "},
        {{"mnuRefresh_Item(1)"}, "", "", ""},  // which is chosen already
        {{"mnuRefresh_Item(2)"}, "", "", "interval=10000 mnuRefresh_Item(1)=off mnuRefresh_Item(2)=on "},
        {{"mnuRefresh_Item(4)"}, "", "", "interval=0 mnuRefresh_Item(1)=off mnuRefresh_Item(4)=on "},
        {{"mnuTools_Save"}, "", "", "saved=position "},
        {{"mnuTools_Options"}, "", "", "dialog=frmOptions "},
        {{"mnuHelp_Contents"}, "F1", "Help", "shown=frmHelp "},
        {{"mnuHelp_WebSite"}, "", "", "opened=https://quillet.example/ "},
        {{"mnuHelp_About"}, "", "", "dialog=frmAbout "},
        {{"mnuPopUp_FileDetails"}, "F7", "", "dialog=frmFileInfo ", true},
        {{"mnuPopUp_Analyze"}, "Ctrl+F7", "", "boxes=1 dialog=frmFileInfo ", true},
        {{"mnuPopUp_Refresh"}, "", "", "file=File Information "},
        {{"mnuPopUp_Remove"}, "F8", "Remove", "file=Directory Information (1 Files) page.htm=gone ", true},
        {{}, "Del", "", "file=Directory Information (1 Files) page.htm=gone ", true},
    };
    return commands;
}

class CommandsTest : public WindowRig {
public:
    // Connected, with a file chosen, a folder closed and marks wherever a command leaves something.
    void Start()
    {
        window.reset();
        state.reset();
        registry.reset();
        std::filesystem::remove(store.Folder() / "settings.hive");
        FillStore();
        Open(store.Folder());
        window->Display();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        window->trvFiles->setCurrentIndex(Row("page.htm"));
        window->trvFiles->setExpanded(Row("v"), false);
        window->trvFiles->setFocus();
        window->SetStatus("x");
        window->SetConnStatus("x");
        window->findChild<ActivePanel*>("apPane(2)")->SetCaption("x");
        window->resize(window->width() + 10, window->height());
        boxes.answer = BoxAnswer::Yes;
        boxes.shown.clear();
        outside.opened.clear();
        m_dialog.clear();
        m_resetAt = LastReset();
        AnswerDialogs();
    }

    QModelIndex Row(const char* text) const
    {
        const auto& model = *window->trvFiles->model();
        const auto found = model.match(model.index(0, 0), Qt::DisplayRole, QLatin1String(text), 1,
                                       Qt::MatchStartsWith | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found[0];
    }

    // What a user can tell of the window, by short names.
    std::map<std::string, std::string> Shape()
    {
        QTest::qWait(80);  // the status text follows at its own pace
        std::map<std::string, std::string> shape;
        const auto text = [this](const char* name) {
            return window->findChild<QLabel*>(QLatin1String(name))->text().toStdString();
        };
        shape["boxes"] = std::to_string(boxes.shown.size());
        shape["dialog"] = m_dialog;
        shape["interval"] = std::to_string(window->tmrStats->Interval());
        shape["stop"] = state->stop.isSet ? "set" : "";
        shape["saved"] = SettingsKey(*registry).Bytes("Panels").empty() ? "" : "position";
        shape["counters"] = LastReset() == m_resetAt ? "" : "anew";
        for (const auto& address : outside.opened) shape["opened"] += address;
        for (const auto* const key : {"dir/page.htm", "list.htm"})
            shape[QFileInfo(key).fileName().toStdString()] = IsCached(key) ? "" : "gone";
        for (const auto* const other : QApplication::topLevelWidgets())
            if (other->isVisible() && other != window.get() && !other->objectName().startsWith("mnu"))
                shape["shown"] += other->objectName().toStdString();
        if (window->IsUnloaded()) return {{"window", "unloaded"}};
        shape["status"] = text("Status");
        shape["connection"] = text("Connection");
        shape["folder"] = window->trvFiles->isExpanded(Row("v")) ? "expanded" : "";
        shape["file"] = window->findChild<ActivePanel*>("apPane(2)")->Caption();
        for (const auto* const part :
             {"Toolbar", "StatusBar", "apPane(0)", "apPane(1)", "apPane(2)", "apPane(3)"})
            shape[part] = window->findChild<QWidget*>(QLatin1String(part))->isVisible() ? "" : "hidden";
        for (const auto* const item : window->findChildren<QAction*>())
            if (item->isCheckable() && !item->objectName().isEmpty())
                shape[item->objectName().toStdString()] = item->isChecked() ? "on" : "off";
        return shape;
    }

    // All that is another way than before, and how.
    std::string Changes(const std::function<void()>& act)
    {
        const auto before = Shape();
        act();
        while (QApplication::activeModalWidget() != nullptr) QTest::qWait(10);
        const auto after = Shape();
        std::string changes;
        for (const auto& [name, value] : after)
            if (const auto was = before.find(name); was == before.end() || was->second != value)
                changes += name + '=' + value + ' ';
        return changes;
    }

    void Ask(const QModelIndex& row)
    {
        const auto place = row.isValid() ? window->trvFiles->visualRect(row).center()
                                         : QPoint(5, window->trvFiles->viewport()->height() - 2);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                window->trvFiles->viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(window->trvFiles->viewport(), &event);
    }

    // Chooses it with the mouse, from the menu that it stands in.
    void ClickItem(const QString& name)
    {
        auto* const item = window->findChild<QAction*>(name);
        auto* const menu = qobject_cast<QMenu*>(item->parent());
        if (menu == window->mnuPopUp_Tree)
            Ask(Row("page.htm"));
        else if (menu == window->mnuPopUp_Perf)
            QTest::mousePress(window->findChild<QWidget*>("TotalsValue(2)"), Qt::RightButton);
        else
            menu->popup({});
        ASSERT_TRUE(menu->isVisible()) << name.toStdString();
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
    }

    void ClickButton(const QString& name)
    {
        if (name.contains(u'(')) return ClickItem(name);
        QTest::mouseClick(window->findChild<QToolButton*>(name + "Button"), Qt::LeftButton);
    }

    void Press(const char* key, QWidget* where)
    {
        where->setFocus();
        const auto combination = QKeySequence(QLatin1String(key))[0];
        QTest::keyClick(where, combination.key(), combination.keyboardModifiers());
    }

    void PressWhereItActs(const Command& command)
    {
        auto* const elsewhere = window->findChild<QWidget*>(QStringLiteral("lstFileTypes"));
        if (command.inTree) {
            EXPECT_EQ(Changes([&] { Press(command.key, elsewhere); }), "") << command.key;
        }
        Press(command.key, command.inTree ? window->trvFiles : elsewhere);
    }

    void Expect(const Command& command, const char* where, const std::function<void()>& act)
    {
        Start();
        EXPECT_EQ(Changes(act), command.effect) << where;
    }

    std::function<void(QDialog&)> inDialog;  // before it is closed

private:
    std::uint64_t LastReset()
    {
        return state->transport->Connect("here").value()->ReadCounters().value().sinceTicks;
    }

    bool IsCached(const char* key)
    {
        return state->cache.OpenKey(zentrel::SiteRootKey(1) + '/' + key).has_value();
    }

    // Closes every modal dialog a moment after it came up; the server's with what it offers.
    void AnswerDialogs()
    {
        m_closer.disconnect();
        QObject::connect(&m_closer, &QTimer::timeout, [this, ticks = 0]() mutable {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || ++ticks < 10) return;
            ticks = 0;
            m_dialog = dialog->objectName().toStdString();
            if (inDialog) inDialog(*dialog);
            if (auto* const server = qobject_cast<frmServer*>(dialog))
                server->cmdOK->click();
            else
                dialog->reject();
        });
        m_closer.start(10);
    }

    QTimer m_closer;
    std::string m_dialog;
    std::uint64_t m_resetAt = 0;
};

}  // namespace

TEST_F(CommandsTest, EachIsReachedByMenuKeyAndToolbarAndDoesItsWork)
{
    for (const auto& command : Commands()) {
        std::string menus;
        for (const auto* const item : command.items) {
            Expect(command, item, [&] { ClickItem(QLatin1String(item)); });
            menus += std::string(item) + ' ';
        }
        if (*command.key != '\0') Expect(command, command.key, [&] { PressWhereItActs(command); });
        if (*command.button != '\0')
            Expect(command, command.button, [&] { ClickButton(QLatin1String(command.button)); });
        std::cout << "| " << menus << "| " << command.key << (command.inTree ? " in the tree" : "") << " | "
                  << command.button << " | " << command.effect << "|\n";
    }
}

TEST_F(CommandsTest, WhatTheRowsMenuForbadeTheKeysStillDo)
{
    Start();
    Ask(window->trvFiles->model()->index(0, 0));
    EXPECT_FALSE(window->findChild<QAction*>("mnuPopUp_FileDetails")->isEnabled());
    window->mnuPopUp_Tree->hide();
    window->trvFiles->setCurrentIndex(Row("page.htm"));
    EXPECT_EQ(Changes([this] { Press("F7", window->trvFiles); }), "dialog=frmFileInfo ");
}

TEST_F(CommandsTest, F1InADialogOpensItsPage)
{
    Start();
    QString page;
    inDialog = [&page](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget() == nullptr ? &dialog : dialog.focusWidget(), Qt::Key_F1);
        for (auto* const other : QApplication::topLevelWidgets()) {
            if (other->objectName() != "frmHelp" || !other->isVisible()) continue;
            page = other->findChild<QTextBrowser*>("HelpPage")->source().path();
            other->close();
        }
    };
    const struct {
        const char *command, *page;
    } cases[] = {{"mnuFile_Sites", "/connecting.md"},
                 {"mnuToolbars_Customize", "/window.md"},
                 {"mnuTools_Options", "/options.md"},
                 {"mnuHelp_About", "/about.md"},
                 {"mnuPopUp_FileDetails", "/file-details.md"}};
    for (const auto& [command, expected] : cases) {
        page.clear();
        window->trvFiles->setCurrentIndex(Row("page.htm"));
        Changes([&, name = command] { Trigger(name); });
        EXPECT_EQ(page, QLatin1String(expected)) << command;
    }
}

TEST_F(CommandsTest, HiddenBarsLeaveNoGapAndNarrowOnesNothingOut)
{
    Start();
    window->resize(window->minimumSizeHint().width(), 400);
    Shape();
    const auto* const more = window->Toolbar->findChild<QWidget*>("qt_toolbar_ext_button");
    EXPECT_TRUE(more->isVisible() && !more->accessibleName().isEmpty());
    for (const auto* const command : {"mnuToolbars_Main", "mnuView_StatusBar"}) Trigger(command);
    Shape();
    const auto* const area = window->centralWidget();
    EXPECT_EQ(area->geometry().top(), window->menuBar()->geometry().bottom() + 1);
    EXPECT_EQ(area->geometry().bottom(), window->rect().bottom());
    EXPECT_EQ(window->spltMain->geometry().bottom(), area->rect().bottom());
}

TEST_F(CommandsTest, TheToolbarIsSavedAtExitAloneAndADamagedOneIsTheUsualOne)
{
    Start();
    const auto stored = [this] { return SettingsKey(*registry).Bytes("ToolbarStandard"); };
    const auto restart = [this] {
        window->close();
        Open(store.Folder());
        window->Display();
        return window->Toolbar->Arrangement().Current();
    };
    auto layout = window->Toolbar->Arrangement();
    const auto usual = layout.Current();
    while (!layout.Current().empty()) layout.Remove(0);
    layout.Insert("Help", 0);
    window->Toolbar->Arrange(layout);
    auto& settings = state->settings;
    settings.SaveWindowPos = settings.SavePanels = settings.SaveView = settings.SaveAutoStats = false;
    Trigger("mnuTools_Save");
    EXPECT_TRUE(stored().empty());
    EXPECT_EQ(SettingsKey(*registry).Number("SaveView", 7), 7);  // nor the general settings
    EXPECT_EQ(SettingsKey(*registry).Bytes("Panels").size(), 8U);
    EXPECT_EQ(restart(), usual);

    state->settings.SaveView = true;
    window->Toolbar->Arrange(layout);
    EXPECT_EQ(restart(), ToolbarLayout::Items{"Help"});
    state->settings.SaveView = false;
    auto damaged = stored();
    damaged.resize(damaged.size() - 1);
    SettingsKey(*registry).SetBytes("ToolbarStandard", damaged);
    EXPECT_EQ(restart(), usual);
}
