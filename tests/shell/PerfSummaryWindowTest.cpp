// The performance summary in the main window, over a service that has answered requests.
#include "shell/WindowRig.h"
#include "zentrel/ServiceRig.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLineEdit>

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
    ActivePanel& Panel() const { return *Find<ActivePanel>("apPane(3)"); }

    Traffic traffic{4};
};

TEST_F(PerfSummaryWindowTest, ARightClickAnywhereOnThePanelOffersTheReset)
{
    auto* const menu = window->mnuPopUp_Perf;
    auto* const value = Find("TotalsValue(7)");
    QWidget* const places[] = {&Panel().Surface(), Find("TotalsLbl(0)"), Find("TotalsValue(0)"), value};
    for (auto* const place : places) {
        QTest::mouseClick(place, Qt::LeftButton);
        EXPECT_FALSE(menu->isVisible());
        QTest::mousePress(place, Qt::RightButton);
        EXPECT_TRUE(menu->isVisible()) << place->objectName().toStdString();
        menu->hide();
    }
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
    EXPECT_EQ(Value(18), "0.00%");
    EXPECT_EQ(Panel().Caption(), "Performance Summary") << "nothing compressed: no boost";
    EXPECT_EQ(boxes.shown, std::vector<std::string>{});
}

TEST_F(PerfSummaryWindowTest, TheSummaryTooltipsItemSwitchesEveryBalloon)
{
    const auto expectEach = [this](int balloons, const char* when, bool isAskedFor = true) {
        for (const auto* const name : {"TotalsLbl(0)", "TotalsValue(18)"}) {
            auto* const control = Find(name);
            QHelpEvent help(QEvent::ToolTip, {3, 3}, control->mapToGlobal(QPoint(3, 3)));
            if (isAskedFor) QCoreApplication::sendEvent(control, &help);
            int shown = 0;
            for (const auto* const child : control->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                shown += child->isVisible() && child->windowType() == Qt::ToolTip;
            EXPECT_EQ(shown, balloons) << name << ' ' << when;
        }
    };
    expectEach(1, "at first");
    Trigger("mnuView_ToolTips");
    expectEach(0, "what stood there is gone", false);
    expectEach(0, "switched off");
    window->ConnectToServer();
    expectEach(0, "connected anew");
    Trigger("mnuView_ToolTips");
    expectEach(1, "switched on");
    window->ConnectToServer();
    expectEach(1, "connected once more");
}

}  // namespace
