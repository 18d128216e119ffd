// How the main window's commands look.
#include "WindowRig.h"

#include <QMenuBar>
#include <QToolButton>

namespace {

// name|caption|keys|check mark

constexpr const char* kMenus = R"(mnuFile|&File
 mnuFile_Connect|&Connect...|F4
 mnuFile_Sites|&Select web sites...|Ctrl+F4
 mnuFile_Sep1|-
 mnuFile_Rescan|&Rescan IIS|F5
 mnuFile_ExpandAll|&Expand all nodes|F6
 mnuFile_Report|Re&port...
 mnuFile_Export|Export to &database...
 mnuFile_Sep2|-
 mnuFile_Exit|&Exit
mnuView|&View
 mnuView_Toolbars|&Toolbars
  mnuToolbars_Main|&Standard|Ctrl+T|on
  mnuToolbars_Sep1|-
  mnuToolbars_Customize|&Customize...
 mnuView_StatusBar|Status &Bar|Ctrl+B|on
 mnuView_Sep2|-
 mnuView_ToolTips|&Summary Tooltips|on
 mnuView_Sep1|-
 mnuView_Info|&Panels
  mnuInfo_Item(0)|&File type totals|Shift+F1|on
  mnuInfo_Item(1)|&Cache totals|Shift+F2|on
  mnuInfo_Item(2)|&File info|Shift+F3|on
  mnuInfo_Item(3)|&Performance Summary|Shift+F4|on
  mnuInfo_Item(4)|-
  mnuInfo_Item(5)|&All|Shift+F9|on
mnuTools|&Tools
 mnuTools_PerfCounters|&Performance counters...
 mnuTools_RstPerfCounters|&Reset Performance counters
 mnuTools_Sep1|-
 mnuTools_CleanCache|&Full cache cleanup|Ctrl+F8
 mnuTools_Sep2|-
 mnuTools_AutoUpdateStats|&Auto-refresh statistics
  mnuRefresh_Item(0)|Every &1 second|off
  mnuRefresh_Item(1)|Every &5 seconds|on
  mnuRefresh_Item(2)|Every 1&0 seconds|off
  mnuRefresh_Item(3)|-
  mnuRefresh_Item(4)|&Disable Auto-refresh|off
 mnuTools_Sep3|-
 mnuTools_Save|&Save position
 mnuTools_Options|&Options...
mnuHelp|&Help
 mnuHelp_Contents|&Contents...|F1
 mnuHelp_WebSite|Zentrel &Website
 mnuHelp_Sep1|-
 mnuHelp_About|&About...
)";

constexpr const char* kPopUps = R"(mnuPopUp_Tree|Tree Popup Menu
 mnuPopUp_FileDetails|&Details|F7
 mnuPopUp_Refresh|&Refresh
 mnuPopUp_Remove|Delete &cache|F8
 mnuPopUp_Sep1|-
 mnuPopUp_Analyze|Compression &analysis|Ctrl+F7
 mnuPopUp_Sep2|-
 mnuPopUp_Rescan|Rescan &IIS
mnuPopUp_Perf|Perf Popup Menu
 mnuPopUp_RstPerf|&Reset
)";

// key|caption|description|tool tip, and the entries of its menu
constexpr const char* kButtons = R"(Connect| Connect |Connect|Connect to another IIS server
Stop| Stop |Stop Reload|Stop reload operation
Refresh| Refresh |Refresh|Reload cache information from the server
-
Remove| Remove |Remove Cache|Remove cached files
-
Panels| Panels |View Panels|Select panels
 Panels(0)|File type totals
 Panels(1)|Cache totals
 Panels(2)|File info
 Panels(3)|Performance summary
Help| Help |Help|Open help contents
)";

std::string MenuText(const QMenu& menu, int depth = 0)
{
    const std::string indent(static_cast<std::size_t>(depth), ' ');
    auto text = indent + menu.objectName().toStdString() + '|' + menu.title().toStdString() + '\n';
    for (const auto* item : menu.actions()) {
        if (const auto* const below = item->menu<QMenu*>()) {
            text += MenuText(*below, depth + 1);
            continue;
        }
        text += indent + ' ' + item->objectName().toStdString() + '|';
        text += item->isSeparator() ? "-" : item->text().toStdString();
        if (!item->shortcut().isEmpty()) text += '|' + item->shortcut().toString().toStdString();
        if (item->isCheckable()) text += item->isChecked() ? "|on" : "|off";
        text += '\n';
    }
    return text;
}

std::string ButtonText(const CustomToolBar& bar)
{
    std::string text;
    for (const auto* item : bar.actions()) {
        if (item->isSeparator()) {
            text += "-\n";
            continue;
        }
        const auto key = item->objectName().toStdString();
        const auto* const button = bar.findChild<QToolButton*>(item->objectName() + "Button");
        EXPECT_FALSE(item->icon().isNull() || button == nullptr) << key;
        text += key + '|' + button->text().toStdString() + '|' + bar.Description(key).toStdString() + '|' +
                button->toolTip().toStdString() + '\n';
        if (item->menu<QMenu*>() == nullptr) continue;
        for (const auto* entry : item->menu<QMenu*>()->actions())
            text += ' ' + entry->objectName().toStdString() + '|' + entry->text().toStdString() + '\n';
    }
    return text;
}

using MenusTest = WindowRig;

}  // namespace

TEST_F(MenusTest, TheMenusAreAsDocumented)
{
    Open(store.Folder());
    std::string text;
    for (const auto* const item : window->menuBar()->actions()) text += MenuText(*item->menu<QMenu*>());
    EXPECT_EQ(text, kMenus);
    EXPECT_EQ(MenuText(*window->mnuPopUp_Tree) + MenuText(*window->mnuPopUp_Perf), kPopUps);
    EXPECT_EQ(ButtonText(*window->Toolbar), kButtons);
}
