#include "controls/ScrollBars.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyle>

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

TEST_F(ScrollBarsTest, TellRequestsByTheirCodes)
{
    bars.SetScrollExtentY(6000);
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

}  // namespace
