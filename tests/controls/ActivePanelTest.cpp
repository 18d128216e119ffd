#include "controls/ActivePanel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

namespace {

// A panel of 204 by 104 pixels, 200 by 100 within its border, beside an edit that can take the focus.
// Twips are 15 to the pixel; the header is 19 pixels high.
class ActivePanelTest : public testing::Test {
protected:
    ActivePanelTest()
    {
        window.resize(400, 300);
        before.setGeometry(250, 0, 100, 20);
        panel.setGeometry(0, 0, 204, 104);
        panel.SetCaption("Cache Totals");
        QWidget::setTabOrder(&before, &panel);
    }

    QPushButton* Add(double left, double top, double width = 500, double height = 300)
    {
        auto* const button = new QPushButton(&panel.Surface());
        panel.Place(*button, {left, top, width, height});
        return button;
    }

    void Show()
    {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        before.setFocus();
    }

    bool IsHighlighted() const { return panel.HeaderBackColor() == OleColor::Highlight; }

    QWidget window;
    QLineEdit before{&window};
    ActivePanel panel{&window};
};

TEST_F(ActivePanelTest, LaysItselfOut)
{
    Show();
    EXPECT_EQ(panel.Surface().geometry(), QRect(2, 2, 200, 100));
    EXPECT_TRUE(panel.ScaleWidth() == 3000 && panel.ScaleHeight() == 1500);
    const struct {
        HeaderSide side;
        QRect header, bars;
    } sides[] = {{HeaderSide::Left, {0, 0, 19, 100}, {19, 0, 181, 100}},
                 {HeaderSide::Right, {181, 0, 19, 100}, {0, 0, 181, 100}},
                 {HeaderSide::Bottom, {0, 81, 200, 19}, {0, 0, 200, 81}},
                 {HeaderSide::Top, {0, 0, 200, 19}, {0, 19, 200, 81}}};
    for (const auto& one : sides) {
        panel.SetHeaderAlign(one.side);
        EXPECT_EQ(panel.Header().geometry(), one.header);
        EXPECT_EQ(panel.ScrollBars().geometry(), one.bars);
    }
    panel.SetBorderStyle(0);
    EXPECT_EQ(panel.Surface().geometry(), panel.rect());
    for (const QSize size : {QSize(1, 1), QSize(0, 0), QSize(3, 500), QSize(204, 104)}) {
        panel.resize(size);
        EXPECT_TRUE(panel.Surface().width() >= 0 && panel.ScrollBars().height() >= 0);
        EXPECT_FALSE(window.grab().isNull());
    }
}

TEST_F(ActivePanelTest, ScrollsWhatItContains)
{
    Add(-2000, -2000);
    panel.UpdateScrollExtent();
    EXPECT_TRUE(panel.ScrollWidth() == 0 && panel.ScrollHeight() == 0) << "nothing there";
    const auto* const wide = Add(1000, 400);
    panel.UpdateScrollExtent();
    EXPECT_EQ(panel.ScrollWidth(), 1560);
    EXPECT_EQ(panel.ScrollHeight(), 400 + 300 + 60 - 285);
    const auto* const far = Add(4001, 3003);
    Show();
    EXPECT_EQ(panel.ScrollWidth(), 4561) << "measured when shown";
    const QRect wideBefore = wide->geometry(), farBefore = far->geometry();
    int pumped = 0;
    panel.SetPump([&] { ++pumped; });
    std::vector<QPoint> seen;
    QObject::connect(&panel, &ActivePanel::ScrollX, [&](int code) { seen.emplace_back(wide->x(), code); });
    panel.ScrollBars().Request(ScrollAxis::Horizontal, ScrollCode::ThumbTrack, 200);
    EXPECT_EQ(panel.PlaceOf(*wide).left, 800);
    EXPECT_EQ(seen, (std::vector<QPoint>{{qRound(800 / 15.0), ScrollCode::ThumbTrack}}));
    EXPECT_EQ(pumped, 1);
    for (int i = 1; i < 100; ++i)
        panel.ScrollBars().Request(ScrollAxis::Horizontal, ScrollCode::ThumbTrack, i * 7);
    panel.UpdateScrollExtent();
    EXPECT_EQ(panel.ScrollWidth(), 4561) << "also while scrolled";
    panel.ScrollBars().Request(ScrollAxis::Vertical, ScrollCode::Bottom);
    panel.ScrollBars().Request(ScrollAxis::Vertical, ScrollCode::Top);
    panel.ScrollBars().Request(ScrollAxis::Horizontal, ScrollCode::Top);
    EXPECT_TRUE(wide->geometry() == wideBefore && far->geometry() == farBefore);
}

TEST_F(ActivePanelTest, ColoursItsHeaderWhileItHoldsTheFocus)
{
    auto* const inner = Add(0, 400);
    panel.SetHeaderBackColor(0x00112233);
    Show();
    for (QWidget* const holder : {static_cast<QWidget*>(&panel), static_cast<QWidget*>(inner)}) {
        holder->setFocus(Qt::MouseFocusReason);
        EXPECT_TRUE(IsHighlighted());
    }
    before.setFocus();
    EXPECT_EQ(panel.HeaderBackColor(), 0x00112233U);
    inner->setFocus();
    delete inner;
    EXPECT_EQ(IsHighlighted(), panel.hasFocus());
}

TEST_F(ActivePanelTest, TakesTheFocusByClickAndTab)
{
    QLineEdit after(&window);
    Show();
    after.show();
    QSignalSpy clicks(&panel, &ActivePanel::HeaderClick);
    QTest::mouseClick(&panel.Header(), Qt::LeftButton, {}, {20, 9});
    EXPECT_TRUE(panel.hasFocus() && clicks.count() == 1);
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(panel.hasFocus()) << "a stop of its own when nothing inside takes the focus";
    auto* const first = Add(0, 400);
    auto* const second = Add(0, 800);
    first->show();
    second->show();
    before.setFocus();
    std::vector<QWidget*> visited;
    for (const auto key :
         {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        QTest::keyClick(window.focusWidget(), key);
        visited.push_back(window.focusWidget());
    }
    EXPECT_EQ(visited, (std::vector<QWidget*>{first, second, &after, second, first, &before}));
    panel.setFocus();
    EXPECT_TRUE(first->hasFocus());
    QTest::mouseClick(&panel.Surface(), Qt::LeftButton, {}, {190, 90});
    EXPECT_TRUE(IsHighlighted());
}

TEST_F(ActivePanelTest, ScrollsByKeysAndWheel)
{
    auto* const lowest = Add(0, 6000);
    Show();
    const auto position = [this] { return panel.ScrollBars().PosY(); };
    lowest->setFocus(Qt::TabFocusReason);
    const QRect place(lowest->mapTo(&panel, QPoint()), lowest->size());
    EXPECT_TRUE(panel.rect().contains(place)) << "the keyboard finds what was out of sight";
    EXPECT_GT(position(), 0);
    panel.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&panel, Qt::Key_Home);
    EXPECT_EQ(position(), 0);
    QTest::keyClick(&panel, Qt::Key_PageDown);
    EXPECT_EQ(position(), 81 * 15);
    QTest::keyClick(lowest, Qt::Key_PageUp);
    EXPECT_EQ(position(), 0) << "keys that a control inside leaves";
    QTest::keyClick(&panel, Qt::Key_End);
    EXPECT_EQ(position(), 6360 - 285 - 81 * 15);
}

TEST_F(ActivePanelTest, ScrollsByAWheelOverWhatItContains)
{
    auto* const label = new QLabel(&panel.Surface());
    panel.Place(*label, {0, 300, 9000, 9000});
    Show();
    const auto turn = [&](QPoint angle, Qt::KeyboardModifiers keys = {}) {
        const QPointF at(50, 50);
        QWheelEvent wheel(at, label->mapToGlobal(at), {}, angle, {}, keys, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);  // one of a real wheel goes on to the parents
        qApp->notify(label, &wheel);
        return wheel.isAccepted();
    };
    const auto& bars = panel.ScrollBars();
    const int line = bars.Model(ScrollAxis::Vertical).bar.LineStep();
    const int across = bars.Model(ScrollAxis::Horizontal).bar.LineStep();
    EXPECT_TRUE(turn({0, -120}));
    EXPECT_EQ(bars.PosY(), static_cast<float>(3 * line));
    EXPECT_EQ(panel.PlaceOf(*label).top, 300.0 - 3 * line);
    EXPECT_TRUE(turn({-120, 0}));
    EXPECT_TRUE(turn({0, -120}, Qt::ShiftModifier));
    EXPECT_EQ(bars.PosX(), static_cast<float>(6 * across)) << "lines, also with the key that turns it";
    EXPECT_TRUE(turn({0, 1200}));
    EXPECT_EQ(bars.PosY(), 0);
    EXPECT_FALSE(turn({0, 120})) << "at its end it is left to others";
}

TEST_F(ActivePanelTest, MirrorsPlacesFromRightToLeft)
{
    const auto* const button = Add(150, 450, 600, 300);
    auto* const byHand = new QPushButton(&panel.Surface());
    byHand->setGeometry(10, 40, 20, 20);
    EXPECT_EQ(panel.PlaceOf(*byHand), (PanelRect{150, 600, 300, 300}));
    Show();
    panel.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(button->geometry(), QRect(200 - 10 - 40, 30, 40, 20));
    panel.resize(304, 104);
    EXPECT_EQ(button->geometry(), QRect(300 - 10 - 40, 30, 40, 20));
    EXPECT_EQ(byHand->x(), 300 - 10 - 20);
    EXPECT_EQ(panel.PlaceOf(*button).left, 150);
    ASSERT_TRUE(panel.SetScrollWidth(9000));
    panel.ScrollBars().Request(ScrollAxis::Horizontal, ScrollCode::ThumbTrack, 150);
    EXPECT_EQ(button->x(), 300 - 40);
}

TEST_F(ActivePanelTest, OutlivesWhatItContains)
{
    std::unique_ptr<QPushButton> button(Add(4000, 4000));
    Show();
    button->setFocus(Qt::OtherFocusReason);
    QObject::connect(&panel, &ActivePanel::ScrollY, [&] { button.reset(); });
    panel.ScrollBars().Request(ScrollAxis::Vertical, ScrollCode::Top);
    EXPECT_FALSE(button);
    panel.UpdateScrollExtent();
    EXPECT_EQ(panel.ScrollWidth(), 0);
    EXPECT_EQ(panel.ScrollBars().PosX(), 0);
    auto* const doomed = new ActivePanel(&window);
    (new QLineEdit(&doomed->Surface()))->setFocus();
    doomed->show();
    doomed->setFocus();
    delete doomed;
}

TEST_F(ActivePanelTest, TellsItsNameRoleAndState)
{
    Show();
    panel.SetCaption("<b>Hits</b>\n");
    auto* const face = QAccessible::queryAccessibleInterface(&panel);
    EXPECT_EQ(face->role(), QAccessible::Pane);
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("<b>Hits</b>\u240A"));
    panel.setFocus();
    EXPECT_TRUE(face->state().focusable && face->state().focused);
    panel.SetEnabled(false);
    EXPECT_TRUE(face->state().disabled);
    EXPECT_TRUE(panel.Header().CloseButton().isHidden());
    panel.SetEnabled(true);
    EXPECT_FALSE(panel.Header().CloseButton().isHidden());
    window.setEnabled(false);
    EXPECT_FALSE(panel.Header().CloseButton().isHidden()) << "a window that waits";
}

TEST_F(ActivePanelTest, KeepsItsPropertiesByName)
{
    PropertyBag bag;
    ActivePanel().Save(bag);
    EXPECT_EQ(bag.Count(), 0U);
    ASSERT_TRUE(panel.Scale(1, 2, 300, 400));
    panel.SetMargin(7);
    panel.SetHeaderCenterCaption(false);
    panel.SetShowScrollBars(false);
    ASSERT_TRUE(panel.SetScrollWidth(12.5F));
    EXPECT_TRUE(panel.IsChanged("Margin") && !panel.IsChanged("ScrollHeight"));
    panel.Save(bag);
    EXPECT_EQ(bag.Count(), 10U);
    EXPECT_TRUE(bag.Contains("ScaleMode_") && bag.Contains("ScaleLeft") && bag.Contains("Caption"));
    ActivePanel other;
    other.Load(bag);
    EXPECT_TRUE(other.ScaleLeft() == 1 && other.ScaleHeight() == 400 && other.ScaleMode() == 0);
    EXPECT_TRUE(other.Margin() == 7 && !other.HeaderCenterCaption() && other.ScrollWidth() == 12.5F);
    EXPECT_TRUE(other.ScrollBars().isHidden() && other.Caption() == "Cache Totals");
    bag.WriteInt("ScaleMode_", 77, 1);
    bag.WriteFloat("ScrollWidth", -4, 0);
    other.Load(bag);
    EXPECT_TRUE(other.ScaleMode() == 1 && other.ScrollWidth() >= 0);
}

}  // namespace
