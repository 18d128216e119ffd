#include "WindowRig.h"

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QLineEdit>

namespace {

constexpr const char* kScanned = "Internet Information Services\n"
                                 " Docs\n"
                                 "  dir\n"
                                 "   page.htm (50%) Remains\n"
                                 "  list.htm (3 entries)\n"
                                 "  v\n"
                                 "   x.css (25.5%) Remains\n"
                                 " Empty (nothing cached)\n";

using frmMainTest = WindowRig;

TEST_F(frmMainTest, ComesUpUnconnected)
{
    Open();
    EXPECT_EQ(window->windowTitle(), "Zentrel Quillet");
    EXPECT_EQ(LabelText("Version"), " Zentrel v1.0   ");
    EXPECT_EQ(LabelText("Connection"), "  Not connected");
    for (const auto* label : window->findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
        if (qobject_cast<const PlainLabel*>(label) != nullptr) {
            EXPECT_FALSE(label->accessibleName().isEmpty());
        }
    }
}

TEST_F(frmMainTest, DisplayConnectsAndScans)
{
    FillStore();
    Open();
    state->settings.LastServer = "elsewhere";  // not remembered, so this machine is taken
    window->Display();

    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(window->windowTitle(), "here - Zentrel Quillet");
    EXPECT_EQ(LabelText("lblTopStrip"), "here - Local - 2 web sites");
    EXPECT_EQ(LabelText("Connection"), "  Connected to here");
    EXPECT_EQ(LabelText("Status"), "Found: 3 Files");
    EXPECT_EQ(TreeText(), kScanned);
    EXPECT_EQ(window->focusWidget(), window->trvFiles);

    // The sites are to be seen, and nothing below them until everything is expanded.
    auto& tree = *window->trvFiles;
    const auto& model = *tree.model();
    const QAbstractItemModelTester tester(tree.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto root = model.index(0, 0);
    const auto site = model.index(0, 0, root);
    EXPECT_TRUE(tree.isExpanded(root) && !tree.isExpanded(site));
    Trigger("mnuFile_ExpandAll");
    EXPECT_TRUE(tree.isExpanded(site) && tree.isExpanded(IndexOf("1/Root/v")) && tree.isVisible());
}

TEST_F(frmMainTest, SaysThatThereIsNoServer)
{
    Open("/nonexistent/zentrel");
    window->Display();
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0], "Zentrel Quillet: Cannot connect to here\r\n(Error 1722 - " +
                                  SystemText(Code::ServerUnavailable) + ")");
    EXPECT_EQ(LabelText("Connection"), "  Not connected - Error");
    for (const char* command : {"mnuFile_Rescan", "mnuFile_ExpandAll", "Refresh", "mnuPopUp_Rescan"})
        Trigger(command);
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
}

TEST_F(frmMainTest, StopEndsTheScanThatRunsAndNoOther)
{
    FillStore();
    for (std::uint32_t i = 10; i < 200; ++i)
        store.Put(zentrel::SiteRootKey(1) + "/more/p" + std::to_string(i), TestStore::Entry(i, 100, 50));
    Open();
    Trigger("Stop");
    window->Display();
    EXPECT_EQ(LabelText("Status"), "Found: 193 Files");

    pump.isLive = true;
    pump.onRun = [this, from = pump.runs, depth = 0](int run) mutable {
        EXPECT_EQ(++depth, 1) << "a second command while it scans";
        EXPECT_FALSE(window->trvFiles->isVisible() && run - from < 50);
        for (const char* command : {"mnuFile_Rescan", "mnuFile_ExpandAll"})
            if (window->trvFiles->isHidden()) Trigger(command);
        if (run - from == 50) QTest::keyClick(window.get(), Qt::Key_Escape);
        --depth;
    };
    window->Rescan();
    const auto found = state->contents.totals.Count;
    EXPECT_GT(found, 0);
    EXPECT_LT(found, 60);
    EXPECT_EQ(LabelText("Status"), "Found: " + QString::number(found) + " Files");
    const QAbstractItemModelTester tester(window->trvFiles->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    pump.onRun = nullptr;
    Trigger("Refresh");
    EXPECT_EQ(LabelText("Status"), "Found: 193 Files");
}

TEST_F(frmMainTest, ClosesWhenTheOperationInProgressHasEnded)
{
    FillStore();
    for (const int runAtClose : {1, 3, 8}) {  // while it shows itself, connects, scans
        Open();
        pump.runs = 0;
        pump.onRun = [&](int run) {
            const bool isClosed = run == runAtClose && window->close();
            EXPECT_FALSE(isClosed);
        };
        window->Display();
        EXPECT_TRUE(window->IsUnloaded() && !window->isVisible()) << runAtClose;
        const auto runs = pump.runs;
        window->Rescan();
        window->ConnectToServer();
        EXPECT_EQ(pump.runs, runs) << runAtClose;
        EXPECT_EQ(TreeText(), "");
    }
}

TEST_F(frmMainTest, ThePanelsShowWhatWasFoundAndWhatIsSelected)
{
    DisplayFilled();
    EXPECT_EQ(LabelText("lblCacheInfo(1)"), "3");
    EXPECT_EQ(Find<QTreeView>("lstFileTypes")->model()->rowCount(), 2);
    const struct {
        const char *key, *caption, *ratio;
    } selections[] = {{"1/Root/dir/page.htm", "File Information", "50.00%"},
                      {"1/Root/dir", "Directory Information (1 Files)", "50.00%"},
                      {"1/Root", "File Information", ""}};
    for (const auto& [key, caption, ratio] : selections) {
        Select(key);
        EXPECT_EQ(Find<ActivePanel>("apPane(2)")->Caption(), caption);
        EXPECT_EQ(LabelText("lblFileInfo(4)"), ratio) << key;
    }

    window->trvFiles->setFocus();
    QTest::keyClick(window.get(), Qt::Key_F6, Qt::ControlModifier);
    EXPECT_TRUE(Find("apPane(0)")->isAncestorOf(window->focusWidget()));
    QTest::keyClick(window.get(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(window->focusWidget(), window->trvFiles);
}

TEST_F(frmMainTest, TheMenuKeyOffersToResetTheCounters)
{
    DisplayFilled();
    auto* const value = Find<QLineEdit>("TotalsValue(15)");
    EXPECT_EQ(value->text(), "0");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {2, 2}, value->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(value, &key);
    EXPECT_TRUE(window->mnuPopUp_Perf->isVisible());
    window->mnuPopUp_Perf->hide();
}

TEST_F(frmMainTest, AllPanelsIsMarkedWhenTheFourAgree)
{
    Open();
    const auto* const all = Find<QAction>("mnuInfo_Item(5)");
    for (const auto* const item : {"mnuInfo_Item(0)", "mnuInfo_Item(1)", "mnuInfo_Item(2)"}) {
        Trigger(item);
        EXPECT_TRUE(all->isChecked()) << item;
    }
    Trigger("mnuInfo_Item(3)");
    EXPECT_FALSE(all->isChecked());
}

TEST_F(frmMainTest, ShowsMarkupAndHostileNamesAsTheyAre)
{
    store.PutSite(1, "<b>Site</b> \xE2\x80\xAE"
                     "evil\n");
    store.Put(zentrel::SiteRootKey(1) + "/<img src=x>.htm", TestStore::Entry(1, 1000, 500));
    store.PutSite(2, "not chosen");
    Open();
    state->first->sites = {{77, 1}};
    window->Display();
    EXPECT_EQ(LabelText("lblTopStrip"), "here - Local - 2 web sites");
    EXPECT_EQ(
        TreeText(),
        "Internet Information Services\n <b>Site</b> \uFFFDevil\u240A\n  <img src=x>.htm (50%) Remains\n");
    window->SetStatus("<h1>big</h1>");
    EXPECT_EQ(LabelText("Status"), "<h1>big</h1>");
}

TEST_F(frmMainTest, TheRowsMenuOffersWhatItsRowAllows)
{
    DisplayFilled();
    window->ExpandAll();
    auto& tree = *window->trvFiles;
    auto* const menu = window->mnuPopUp_Tree;
    const auto ask = [&](QContextMenuEvent::Reason reason, const QPoint& place) {
        menu->hide();
        QContextMenuEvent event(reason, place, tree.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(tree.viewport(), &event);
        return menu->isVisible();
    };
    QModelIndex row = tree.model()->index(0, 0);
    for (const bool isUrl : {false, false, false, true, true, false, true, false}) {
        EXPECT_TRUE(ask(QContextMenuEvent::Mouse, tree.visualRect(row).center()));
        EXPECT_EQ(tree.currentIndex(), row);
        EXPECT_EQ(Find<QAction>("mnuPopUp_Refresh")->isEnabled(), isUrl)
            << row.data().toString().toStdString();
        row = tree.indexBelow(row);
    }
    EXPECT_FALSE(row.isValid());
    EXPECT_FALSE(ask(QContextMenuEvent::Mouse, {5, tree.viewport()->height() - 2}));
    EXPECT_TRUE(ask(QContextMenuEvent::Keyboard, {0, 0}));
    EXPECT_EQ(tree.currentIndex().data(), "Empty (nothing cached)");
    menu->hide();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(menu->isVisible());
    menu->hide();
}

}  // namespace
