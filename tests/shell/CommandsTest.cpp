// The main window's commands: where they are reached, and what each one does.
#include "WindowRig.h"

#include "server/frmServer.h"
#include "settings/SettingsKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTextBrowser>
#include <QTimer>

#include <algorithm>
#include <iostream>
#include <map>

namespace {

constexpr const char* kPage = "1/Root/dir/page.htm";

// Where they are reached and what they do.
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
        Close();
        std::filesystem::remove(store.Folder() / "settings.hive");
        DisplayFilled();
        Select(kPage);
        window->trvFiles->setExpanded(IndexOf("1/Root/v"), false);
        window->trvFiles->setFocus();
        window->SetStatus("x");
        window->SetConnStatus("x");
        Find<ActivePanel>("apPane(2)")->SetCaption("x");
        window->resize(window->width() + 10, window->height());
        boxes.shown.clear();
        outside.opened.clear();
        m_dialog.clear();
        m_resetAt = LastReset();
        AnswerDialogs();
    }

    // What a user can tell of the window, by short names.
    std::map<std::string, std::string> Shape()
    {
        Settle();
        std::map<std::string, std::string> shape;
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
        shape["status"] = Find<QLabel>("Status")->text().toStdString();
        shape["connection"] = Find<QLabel>("Connection")->text().toStdString();
        shape["folder"] = window->trvFiles->isExpanded(IndexOf("1/Root/v")) ? "expanded" : "";
        shape["file"] = Find<ActivePanel>("apPane(2)")->Caption();
        for (const auto* const part :
             {"Toolbar", "StatusBar", "apPane(0)", "apPane(1)", "apPane(2)", "apPane(3)"})
            shape[part] = Find(part)->isVisible() ? "" : "hidden";
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

    void Ask(const QModelIndex& row) const
    {
        const auto place = window->trvFiles->visualRect(row).center();
        auto* const view = window->trvFiles->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->mapToGlobal(place));
        QCoreApplication::sendEvent(view, &event);
    }

    // Chooses it with the mouse, from the menu that it stands in.
    void ClickItem(const char* name) const
    {
        auto* const item = Find<QAction>(name);
        auto* const menu = qobject_cast<QMenu*>(item->parent());
        if (menu == window->mnuPopUp_Tree)
            Ask(IndexOf(kPage));
        else if (menu == window->mnuPopUp_Perf)
            QTest::mousePress(Find("TotalsValue(2)"), Qt::RightButton);
        else
            menu->popup({});
        ASSERT_TRUE(menu->isVisible()) << name;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
    }

    void ClickButton(const std::string& name) const
    {
        if (name.ends_with(')')) return ClickItem(name.c_str());
        QTest::mouseClick(Find((name + "Button").c_str()), Qt::LeftButton);
    }

    void Press(const char* key, QWidget* where)
    {
        where->setFocus();
        const auto combination = QKeySequence(QLatin1String(key))[0];
        QTest::keyClick(where, combination.key(), combination.keyboardModifiers());
    }

    void PressWhereItActs(const Command& command)
    {
        auto* const elsewhere = Find("lstFileTypes");
        if (command.inTree) {
            EXPECT_EQ(Changes([&] { Press(command.key, elsewhere); }), "") << command.key;
        }
        Press(command.key, command.inTree ? window->trvFiles : elsewhere);
    }

    std::function<void(QDialog&)> inDialog;  // before it is closed

private:
    std::uint64_t LastReset()
    {
        return state->transport->Connect("here").value()->ReadCounters().value().sinceTicks;
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
        const auto expect = [&](const char* where, const std::function<void()>& act) {
            if (*where == '\0') return;
            Start();
            EXPECT_EQ(Changes(act), command.effect) << where;
        };
        std::string menus;
        for (const auto* const item : command.items) {
            expect(item, [&] { ClickItem(item); });
            menus += std::string(item) + ' ';
        }
        expect(command.key, [&] { PressWhereItActs(command); });
        expect(command.button, [&] { ClickButton(command.button); });
        std::cout << "| " << menus << "| " << command.key << (command.inTree ? " in the tree" : "") << " | "
                  << command.button << " | " << command.effect << "|\n";
    }
}

TEST_F(CommandsTest, WhatTheRowsMenuForbadeTheKeysStillDo)
{
    Start();
    Ask(window->trvFiles->model()->index(0, 0));
    EXPECT_FALSE(Find<QAction>("mnuPopUp_FileDetails")->isEnabled());
    window->mnuPopUp_Tree->hide();
    Select(kPage);
    EXPECT_EQ(Changes([this] { Press("F7", window->trvFiles); }), "dialog=frmFileInfo ");
}

TEST_F(CommandsTest, F1InADialogOpensItsPage)
{
    Start();
    inDialog = [](QDialog& dialog) { QTest::keyClick(dialog.focusWidget(), Qt::Key_F1); };
    EXPECT_EQ(Changes([this] { Trigger("mnuTools_Options"); }), "dialog=frmOptions shown=frmHelp ");
    const auto windows = QApplication::topLevelWidgets();
    const auto help = std::find_if(windows.begin(), windows.end(),
                                   [](const QWidget* each) { return each->objectName() == "frmHelp"; });
    EXPECT_EQ((*help)->findChild<QTextBrowser*>("HelpPage")->source().path(), "/options.md");
}

TEST_F(CommandsTest, TheToolbarIsSavedAtExitAloneAndADamagedOneIsTheUsualOne)
{
    Start();
    const auto usual = window->Toolbar->Arrangement().Current();
    const auto restart = [this](bool saves) {
        auto layout = window->Toolbar->Arrangement();
        while (layout.Current().size() > 1) layout.Remove(0);
        window->Toolbar->Arrange(layout);
        Trigger("mnuTools_Save");
        state->settings.SaveView = saves;
        window->close();
        Open();
        window->Display();
        return window->Toolbar->Arrangement().Current();
    };
    EXPECT_EQ(restart(false), usual);
    EXPECT_EQ(restart(true), ToolbarLayout::Items{"Help"});
    SettingsKey settings(*registry);
    auto damaged = settings.Bytes("ToolbarStandard");
    damaged.pop_back();
    settings.SetBytes("ToolbarStandard", damaged);
    EXPECT_EQ(restart(false), usual);
}
