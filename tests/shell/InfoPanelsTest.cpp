#include "Ink.h"

#include "controls/ActivePanel.h"
#include "stats/BalloonTips.h"
#include "stats/InfoPanel.h"
#include "stats/PerfPanel.h"
#include "stats/ToolTip.h"
#include "stats/ValueBox.h"
#include "stats/ValueLabel.h"

#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include <algorithm>
#include <memory>

namespace {

const InfoPanel::Row kRows[] = {{"Total <b>Hits</b>:", "Count & more"}, {"Cache Hits:", ""}};
constexpr char kMarkup[] = "<h1>loud</h1>";

class PanelTest : public testing::Test {
protected:
    PanelTest()
    {
        window.resize(500, 400);
        panel.setGeometry(0, 0, 300, 200);
        window.show();
    }

    template <class Widget>
    Widget* Find(const char* name) const
    {
        auto* const found = panel.findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    static bool AskForTip(QWidget* widget)
    {
        QHelpEvent help(QEvent::ToolTip, {3, 3}, widget->mapToGlobal(QPoint(3, 3)));
        return QCoreApplication::sendEvent(widget, &help);
    }

    QWidget window;
    ActivePanel panel{&window};
};

TEST_F(PanelTest, ShowsRecordsRowByRow)
{
    InfoPanel info(panel, {"Label2", "lblFileInfo", "txtFileName"}, kRows);
    const auto* const caption = Find<QLabel>("Label2(1)");
    auto* const value = Find<ValueLabel>("lblFileInfo(2)");
    const auto* const name = Find<ValueBox>("txtFileName");
    EXPECT_TRUE(caption->textFormat() == Qt::PlainText && caption->text() == "Total <b>Hits</b>:");
    EXPECT_EQ(caption->toolTip(), "<span>Count &amp; more</span>");
    EXPECT_EQ(Find<ValueLabel>("lblFileInfo(1)")->toolTip(), caption->toolTip());
    EXPECT_TRUE(value->text().isEmpty() && name->text().isEmpty());

    const std::string texts[] = {"1", kMarkup};
    info.Show(texts, std::string("/a\n") + std::string(200, 'x') + "\xFF");
    EXPECT_EQ(value->text(), kMarkup);
    EXPECT_EQ(value->textFormat(), Qt::PlainText);
    EXPECT_EQ(value->accessibleName(), "Cache Hits: <h1>loud</h1>");
    EXPECT_TRUE(name->isReadOnly() && name->text().startsWith(QStringLiteral("/a\u240Axxx")));
    EXPECT_LT(name->geometry().bottom(), caption->geometry().top());
    EXPECT_TRUE(AskForTip(Find<QWidget>("txtFileName")));
    EXPECT_EQ(QToolTip::text(), "<span>" + name->text() + "</span>") << "what the box has no room for";
    QToolTip::hideText();
    info.Clear();
    EXPECT_TRUE(value->text().isEmpty() && name->text().isEmpty());
}

TEST_F(PanelTest, RowsFillThePanelsWidthAndScrollInItsHeight)
{
    InfoPanel info(panel, {"Label1", "lblCacheInfo"}, kRows);
    const auto* const value = Find<QWidget>("lblCacheInfo(1)");
    const int wide = value->width();
    EXPECT_FALSE(panel.ScrollBars().CanScroll(ScrollAxis::Horizontal));
    panel.resize(250, 200);
    EXPECT_EQ(value->width(), wide - 50);
    panel.resize(300, 55);
    EXPECT_TRUE(panel.ScrollBars().CanScroll(ScrollAxis::Vertical));
    EXPECT_FALSE(panel.ScrollBars().CanScroll(ScrollAxis::Horizontal)) << "the bar's room is left free";
    const int top = value->y();
    panel.ScrollBars().Request(ScrollAxis::Vertical, ScrollCode::LineDown);
    const int scrolled = value->y();
    EXPECT_LT(scrolled, top);
    panel.resize(301, 55);
    EXPECT_EQ(value->y(), scrolled) << "a resize does not scroll back";
    panel.resize(20, 300);
    EXPECT_TRUE(panel.ScrollBars().CanScroll(ScrollAxis::Horizontal)) << "values keep a few characters";
    panel.resize(301, 300);
    EXPECT_EQ(value->y(), top);
}

TEST_F(PanelTest, ValuesRunAsTheyAreWrittenInEveryWindow)
{
    InfoPanel info(panel, {"Label1", "lblCacheInfo"}, kRows);
    auto* const label = Find<ValueLabel>("lblCacheInfo(1)");
    auto* const box = new ValueBox("box", {}, &panel.Surface());
    box->setFrame(false);
    box->resize(200, 30);
    box->show();
    for (const auto* const text : {"6.11 KiB", "-5", "2:30.500", "/docs/a (1)/", "\xD7\x90 1 KiB"}) {
        const bool isHebrew = *text == '\xD7';
        const std::string texts[] = {text};
        info.Show(texts);
        box->ShowText(text);
        for (QWidget* const value : {static_cast<QWidget*>(label), static_cast<QWidget*>(box)}) {
            QGuiApplication::setLayoutDirection(Qt::LeftToRight);
            const auto written = Ink(*value, value->rect());
            QGuiApplication::setLayoutDirection(Qt::RightToLeft);
            const auto shown = Ink(*value, value->rect());
            EXPECT_GT(shown.width(), 5) << text;
            EXPECT_EQ(shown == written, !isHebrew || value == box)
                << text << ' ' << value->objectName().toStdString();
            const QRect half(0, 0, value->width() / 2, value->height());
            EXPECT_TRUE(Ink(*value, half).isNull()) << text << ": at the window's leading side";
        }
    }
    auto& shorter = *Find<QLabel>("Label1(2)");
    const QRect quarter(0, 0, shorter.width() / 4, shorter.height());
    EXPECT_TRUE(Ink(shorter, quarter).isNull()) << "captions, too";
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(PanelTest, CountersTakeRowsAgain)
{
    PerfPanel perf(panel);
    EXPECT_EQ(perf.RowCount(), 1U);
    EXPECT_TRUE(Find<QLineEdit>("TotalsValue(0)")->text().isEmpty());
    const SummaryRow rows[] = {{"Hits:"}, {"Bandwidth Savings:", true}, {"Misses:"}};
    perf.BuildRows(rows);
    perf.ShowValue(1, kMarkup);
    perf.ShowValue(99, "nowhere");
    auto* const second = Find<QLineEdit>("TotalsValue(1)");
    EXPECT_EQ(Find<QLabel>("TotalsLbl(1)")->text(), "Bandwidth Savings:");
    EXPECT_EQ(second->accessibleName(), "Bandwidth Savings:");
    EXPECT_EQ(second->text(), kMarkup);
    EXPECT_EQ(second->palette().color(QPalette::Text), QColor(Qt::red));
    EXPECT_NE(Find<QLineEdit>("TotalsValue(0)")->palette().color(QPalette::Text), QColor(Qt::red));
    for (const int row : {1, 2}) {
        const auto above = panel.PlaceOf(*perf.Values()[static_cast<std::size_t>(row) - 1]);
        EXPECT_NEAR(panel.PlaceOf(*perf.Values()[static_cast<std::size_t>(row)]).top,
                    above.top + above.height + 5, 0.01);
    }
    second->setFocus();
    second->selectAll();
    perf.ShowValue(1, "7");
    EXPECT_EQ(second->selectedText(), "7");

    perf.BuildRows(std::span(rows).last(2));
    EXPECT_EQ(Find<QLineEdit>("TotalsValue(0)")->palette().color(QPalette::Text), QColor(Qt::red));
    EXPECT_NE(second->palette().color(QPalette::Text), QColor(Qt::red)) << "another counter's row now";
    EXPECT_TRUE(Find<QWidget>("TotalsLbl(2)")->isHidden());
    EXPECT_EQ(perf.Values().size(), 2U);
}

TEST_F(PanelTest, TipsExplainAControlToMouseAndKeyboard)
{
    PerfPanel perf(panel);
    auto* const value = perf.Values()[0];
    std::vector<PerfCounter> counters(1);
    counters[0].info.counterName = "Cache <Hits>";
    counters[0].info.explainText = std::string(45, 'x') + " of all requests & more, a line and another one";
    BalloonTips tips;
    for (int connect = 0; connect < 2; ++connect) {
        tips.Clear();
        for (const auto& controls : {perf.Captions(), perf.Values()}) tips.AddTips(controls, counters);
    }
    EXPECT_EQ(tips.Count(), 2U);
    EXPECT_EQ(value->accessibleDescription(),
              "Cache <Hits>. " + QString(45, u'x') + " of all requests & more, a line and another one");
    EXPECT_TRUE(value->whatsThis().startsWith("<p><b>Cache &lt;Hits&gt;</b></p><p>xxx"));

    QTest::keyClick(value, Qt::Key_F1, Qt::ControlModifier);
    const auto windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::any_of(windows.begin(), windows.end(), [](const QWidget* top) {
        return top->isVisible() && top->windowType() == Qt::ToolTip;
    })) << "who has no mouse asks by key";

    tips.Clear();
    EXPECT_TRUE(value->whatsThis().isEmpty() && value->accessibleDescription().isEmpty());
}

TEST_F(PanelTest, AToolTipFollowsItsProperties)
{
    ToolTip tip;
    tip.Create();
    EXPECT_FALSE(tip.IsCreated()) << "no control";
    auto control = std::make_unique<QLabel>(&window);
    control->setGeometry(320, 20, 100, 20);
    control->show();
    tip.SetParentControl(control.get());
    tip.SetTipText(std::string(40, 'a') + " " + std::string(18, 'b') + " c");
    EXPECT_EQ(tip.TipText(), std::string(40, 'a') + " " + std::string(18, 'b') + " \r\nc");
    tip.SetCentered(true);
    tip.Create();
    AskForTip(control.get());
    ASSERT_TRUE(tip.IsShown());
    auto* const balloon = control->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const auto labels = balloon->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 3);
    for (const auto* const label : labels) EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(labels[2]->text(), QString(40, u'a') + ' ' + QString(18, u'b') + " \nc");
    EXPECT_TRUE(labels[0]->isHidden() && labels[1]->isHidden());
    tip.SetIcon(ToolTip::Warning);
    tip.SetTitle(kMarkup);
    tip.SetForeColor(0x0000FF);
    EXPECT_TRUE(labels[0]->isVisible() && labels[1]->text() == kMarkup);
    EXPECT_EQ(balloon->palette().color(QPalette::ToolTipText), QColor(Qt::red));
    const auto middle = balloon->geometry().center() - control->mapToGlobal(QPoint(50, 20));
    EXPECT_NEAR(middle.x(), 0, 1);
    EXPECT_NEAR(middle.y(), balloon->height() / 2.0, 1);
    QTest::keyClick(control.get(), Qt::Key_A);
    EXPECT_FALSE(tip.IsShown());
    AskForTip(control.get());
    EXPECT_TRUE(tip.IsShown());
    control.reset();
    EXPECT_FALSE(tip.IsShown() || tip.IsCreated()) << "the control is gone";
    tip.SetTitle("still here");
    tip.Destroy();
}

}  // namespace
