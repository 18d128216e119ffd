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
    const std::string texts[] = {"1", kMarkup};
    info.Show(texts, std::string("/a\n") + std::string(200, 'x') + "\xFF");
    EXPECT_EQ(value->text(), kMarkup);
    EXPECT_EQ(value->textFormat(), Qt::PlainText);
    EXPECT_EQ(value->accessibleName(), "Cache Hits: <h1>loud</h1>");
    EXPECT_TRUE(name->isReadOnly() && name->text().startsWith(QStringLiteral("/a\u240Axxx")));
    EXPECT_TRUE(AskForTip(Find<QWidget>("txtFileName")));
    EXPECT_EQ(QToolTip::text(), "<span>" + name->text() + "</span>") << "what the box has no room for";
    QToolTip::hideText();
    info.Clear();
    EXPECT_TRUE(value->text().isEmpty() && name->text().isEmpty());
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

TEST_F(PanelTest, TipsExplainAControlToMouseAndKeyboard)
{
    PerfPanel perf(panel);
    auto* const value = perf.Values()[0];
    std::vector<PerfCounter> counters(1);
    counters[0].info.counterName = "Cache <Hits>";
    counters[0].info.explainText = "Requests & more";
    BalloonTips tips;
    tips.AddTips(perf.Values(), counters);
    EXPECT_EQ(value->accessibleDescription(), "Cache <Hits>. Requests & more");
    EXPECT_TRUE(value->whatsThis().startsWith("<p><b>Cache &lt;Hits&gt;</b></p><p>Req"));

    QTest::keyClick(value, Qt::Key_F1, Qt::ControlModifier);
    const auto windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::any_of(windows.begin(), windows.end(), [](const QWidget* top) {
        return top->isVisible() && top->windowType() == Qt::ToolTip;
    })) << "who has no mouse asks by key";

    tips.Clear();
    EXPECT_TRUE(value->whatsThis().isEmpty() && value->accessibleDescription().isEmpty());
}

TEST_F(PanelTest, AToolTipShowsPlainTextAndGoesWithItsControl)
{
    ToolTip tip;
    tip.Create();
    EXPECT_FALSE(tip.IsCreated()) << "no control";
    auto control = std::make_unique<QLabel>(&window);
    control->show();
    tip.SetParentControl(control.get());
    tip.SetTipText(kMarkup);
    tip.SetTitle(kMarkup);
    tip.Create();
    AskForTip(control.get());
    ASSERT_TRUE(tip.IsShown());
    const auto labels = control->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 3);
    for (const auto* const label : labels) EXPECT_EQ(label->textFormat(), Qt::PlainText);
    QTest::keyClick(control.get(), Qt::Key_A);
    EXPECT_FALSE(tip.IsShown());
    AskForTip(control.get());
    control.reset();
    EXPECT_FALSE(tip.IsShown() || tip.IsCreated()) << "the control is gone";
    tip.SetTitle("still here");
    tip.Destroy();
}

}  // namespace
