// The performance summary in the main window, over a service that has answered requests.
#include "shell/WindowRig.h"
#include "zentrel/ServiceRig.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>

namespace {

struct Traffic : ServiceRig {
    explicit Traffic(int requests)
    {
        Start();
        WriteFile("page.htm", std::string(5000, 'x'));
        for (int i = 0; i < requests; ++i) Get("/page.htm");
        Reopen(zentrel::Service::Role::Writer);  // with all written
        responder.reset();
        service.reset();
    }
    void TestBody() override {}
    std::filesystem::path Folder() const { return Data(); }
};

class PerfSummaryWindowTest : public WindowRig {
protected:
    PerfSummaryWindowTest()
    {
        Open(traffic.Folder());
        window->Display();
    }

    QString Value(int row) const
    {
        return window->findChild<QLineEdit*>(QStringLiteral("TotalsValue(%1)").arg(row))->text();
    }
    ActivePanel& Panel() const { return *window->findChild<ActivePanel*>("apPane(3)"); }

    Traffic traffic{4};
};

TEST_F(PerfSummaryWindowTest, ARightClickAnywhereOnThePanelOffersTheReset)
{
    auto* const menu = window->mnuPopUp_Perf;
    EXPECT_EQ(menu->actions(), QList{window->findChild<QAction*>("mnuPopUp_RstPerf")});
    std::vector<QWidget*> places{&Panel().Surface()};
    for (const auto* const name : {"TotalsLbl(0)", "TotalsValue(0)", "TotalsLbl(7)", "TotalsValue(7)"})
        places.push_back(window->findChild<QWidget*>(QLatin1String(name)));
    for (auto* const place : places) {
        QTest::mouseClick(place, Qt::LeftButton);
        EXPECT_FALSE(menu->isVisible());
        QTest::mousePress(place, Qt::RightButton);
        EXPECT_TRUE(menu->isVisible()) << place->objectName().toStdString();
        menu->hide();
    }
    auto* const value = window->findChild<QWidget*>("TotalsValue(3)");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {2, 2}, value->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(value, &key);
    EXPECT_TRUE(menu->isVisible()) << "by the menu key";
}

TEST_F(PerfSummaryWindowTest, TheResetShowsAtTheNextRefresh)
{
    EXPECT_EQ(Value(15), "4");
    EXPECT_EQ(Value(17), "3");
    EXPECT_TRUE(Panel().Caption().starts_with("Performance Summary (Boost ")) << Panel().Caption();
    Trigger("mnuPopUp_RstPerf");
    EXPECT_EQ(Value(15), "4") << "until the next refresh";
    Trigger("mnuRefresh_Item(0)");
    EXPECT_EQ(Value(15), "0");
    EXPECT_EQ(Value(1), "0");
    EXPECT_EQ(Value(18), "0.00%");
    EXPECT_EQ(Panel().Caption(), "Performance Summary") << "nothing compressed: no boost";
    EXPECT_EQ(boxes.shown, std::vector<std::string>{});
}

TEST_F(PerfSummaryWindowTest, TheSummaryTooltipsItemSwitchesEveryBalloon)
{
    auto* const item = window->findChild<QAction*>("mnuView_ToolTips");
    const auto balloonOf = [this](const char* name) {
        auto* const control = window->findChild<QWidget*>(QLatin1String(name));
        QHelpEvent help(QEvent::ToolTip, {3, 3}, control->mapToGlobal(QPoint(3, 3)));
        QCoreApplication::sendEvent(control, &help);
        int shown = 0;
        for (const auto* const child : control->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (child->isVisible() && child->windowType() == Qt::ToolTip) ++shown;
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(control, &leave);
        return shown;
    };
    const auto expectEach = [&balloonOf](int balloons, const char* when) {
        for (const auto* const name : {"TotalsLbl(0)", "TotalsValue(18)"})
            EXPECT_EQ(balloonOf(name), balloons) << name << ' ' << when;
    };
    expectEach(1, "at first");
    item->trigger();
    expectEach(0, "switched off");
    window->ConnectToServer();
    expectEach(0, "connected anew");
    item->trigger();
    expectEach(1, "switched on");
    window->ConnectToServer();
    expectEach(1, "connected once more");
}

TEST_F(PerfSummaryWindowTest, ShowsNothingOfAServerThatIsNotThere)
{
    Open("/nonexistent/zentrel");
    window->Display();
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(Value(0), "");
    EXPECT_EQ(Panel().Caption(), "Performance Summary");
}

}  // namespace
