#include "controls/ScrollBars.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>

#include <cmath>
#include <string>

namespace {

constexpr auto H = ScrollAxis::Horizontal;
constexpr auto V = ScrollAxis::Vertical;

// Bars over a button that fills the window; lengths are twips, 15 to the pixel.
class ScrollBarsTest : public testing::Test {
protected:
    ScrollBarsTest()
    {
        window.resize(200, 100);
        behind.resize(200, 100);
        bars.SetFitContainer(true);
        bars.raise();
        window.show();
    }

    std::vector<int> Codes(const QSignalSpy& spy) const
    {
        std::vector<int> codes;
        for (const auto& call : spy) codes.push_back(call.at(0).toInt());
        return codes;
    }

    QWidget window;
    QPushButton behind{&window};
    ScrollBars bars{&window};
    const int thickness = bars.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &bars.Bar(V));
};

TEST_F(ScrollBarsTest, AreThereOnlyWhereTheyShow)
{
    const QPoint side(200 - thickness / 2, 20);
    const QPoint corner(200 - thickness / 2, 100 - thickness / 2);
    EXPECT_EQ(window.childAt(100, 50), &behind);
    EXPECT_EQ(window.childAt(side), &behind);
    bars.SetScrollExtentY(4000);
    EXPECT_EQ(window.childAt(100, 50), &behind);
    EXPECT_EQ(window.childAt(side), &bars.Bar(V));
    EXPECT_EQ(window.childAt(100, 100 - thickness / 2), &behind);
    bars.SetScrollExtentX(4000);
    EXPECT_EQ(window.childAt(100, 100 - thickness / 2), &bars.Bar(H));
    EXPECT_EQ(window.childAt(corner), &bars);
    bars.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(window.childAt(thickness / 2, 20), &bars.Bar(V));
    EXPECT_EQ(window.childAt(side), &behind);
}

TEST_F(ScrollBarsTest, FollowTheirContainer)
{
    QSignalSpy resized(&bars, &ScrollBars::Resize);
    bars.SetScrollExtentX(3000);
    EXPECT_FALSE(bars.CanScroll(H)) << "200 pixels";
    window.resize(199, 50);
    EXPECT_EQ(bars.geometry(), QRect(0, 0, 199, 50));
    EXPECT_EQ(resized.count(), 1);
    EXPECT_TRUE(bars.CanScroll(H));
    EXPECT_EQ(bars.PageX(), 199 * 15);
    bars.SetFitContainer(false);
    window.resize(300, 50);
    EXPECT_EQ(bars.width(), 199);
    bars.AutoFit(150, 30, 300, -1);
    EXPECT_EQ(bars.geometry(), QRect(10, 2, 20, 50));
}

TEST_F(ScrollBarsTest, TellRequestsByTheirCodes)
{
    bars.SetScrollExtentY(6000);
    bars.SetMinY(50);  // not in the automatic mode
    bars.SetPageY(1);
    EXPECT_TRUE(bars.SetMaxY(-50));
    std::string told;
    QObject::connect(&bars, &ScrollBars::ScrollY, [&](int code) {
        told += std::to_string(code) + ":" + std::to_string(std::lround(bars.PosY())) + " ";
    });
    auto& bar = bars.Bar(V);
    for (const auto action :
         {QScrollBar::SliderSingleStepAdd, QScrollBar::SliderPageStepAdd, QScrollBar::SliderToMaximum,
          QScrollBar::SliderToMaximum, QScrollBar::SliderPageStepSub, QScrollBar::SliderSingleStepSub,
          QScrollBar::SliderToMinimum, QScrollBar::SliderToMinimum})
        bar.triggerAction(action);
    bar.setSliderPosition(777);
    EXPECT_EQ(told, "1:100 3:1600 7:4500 2:3000 0:2900 6:0 5:777 ") << "a line is a fifteenth of a page";
    EXPECT_EQ(bar.value(), 777);
    bars.SetShowY(false);
    bars.Request(V, ScrollCode::Top);
    EXPECT_EQ(bars.PosY(), 0) << "hidden, but needed all the same";
}

TEST_F(ScrollBarsTest, OnlyReportInManualMode)
{
    bars.SetAutoScroll(false);
    EXPECT_EQ(bars.ScrollExtentY(), 1500) << "the own size while there is no range";
    ASSERT_TRUE(bars.SetMaxY(1000));
    EXPECT_EQ(bars.ScrollExtentY(), 1000);
    bars.SetPageY(100);
    bars.SetPosY(999);
    EXPECT_EQ(bars.PosY(), 900);
    bars.SetPosY(490);
    bars.SetMinY(10);
    EXPECT_EQ(bars.PosY(), 500) << "moves along";
    QSignalSpy told(&bars, &ScrollBars::ScrollY);
    auto& bar = bars.Bar(V);
    bar.triggerAction(QScrollBar::SliderPageStepAdd);
    EXPECT_EQ(bar.value(), 500);
    const auto lower = bar.rect().center() + QPoint(0, bar.height() / 2 - 3);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, lower);
    EXPECT_EQ(Codes(told), (std::vector<int>{3, 1, 8}));
    EXPECT_EQ(bar.value(), 500);
    const auto host =
        QObject::connect(&bars, &ScrollBars::ScrollY, [this] { bars.SetPosY(bars.PosY() + 7); });
    bar.triggerAction(QScrollBar::SliderToMinimum);
    EXPECT_EQ(bar.value(), 507) << "where the host put it";
    QObject::disconnect(host);
    EXPECT_EQ(bars.SetMaxY(506).error().code, 5U);
    EXPECT_EQ(bars.MaxY(), 1000);
    EXPECT_TRUE(bars.SetMaxY(507));
    bars.SetShowY(false);
    EXPECT_TRUE(bar.isHidden());
}

TEST_F(ScrollBarsTest, TellOfPositionsThatALayoutLowered)
{
    bars.SetScrollExtentY(3000);
    bars.Request(V, ScrollCode::Bottom);
    EXPECT_EQ(bars.PosY(), 1500);
    QSignalSpy told(&bars, &ScrollBars::ScrollY);
    window.resize(200, 150);
    EXPECT_EQ(bars.PosY(), 750);
    window.resize(200, 200);
    EXPECT_EQ(bars.PosY(), 0);
    window.resize(200, 150);
    EXPECT_EQ(Codes(told), (std::vector<int>{5, 5}));
    bars.hide();
    bars.show();
    EXPECT_EQ(bars.PosY(), 0);
}

TEST_F(ScrollBarsTest, KeepTheirPropertiesByName)
{
    ScrollBars fresh;
    PropertyBag bag;
    fresh.Save(bag);
    EXPECT_EQ(bag.Count(), 0U);
    bars.SetAutoScroll(false);
    ASSERT_TRUE(bars.SetMaxX(90));
    bars.SetPageY(3);
    bars.SetShowX(false);
    bars.SetScrollExtentY(70);
    EXPECT_TRUE(bars.IsChanged("MaxX") && !bars.IsChanged("MaxY"));
    bars.Save(bag);
    EXPECT_EQ(bag.Count(), 7U) << "with FitContainer and the PageX of the automatic mode";
    fresh.Load(bag);
    EXPECT_TRUE(fresh.FitContainer() && !fresh.AutoScroll() && !fresh.ShowX() && fresh.ShowY());
    EXPECT_EQ(fresh.MaxX(), 90);
    EXPECT_EQ(fresh.PageY(), 3);
    EXPECT_EQ(fresh.ScrollExtentY(), 70);
    EXPECT_FALSE(fresh.IsChanged("MaxX"));
}

}  // namespace
