#include "controls/PaneFocus.h"
#include "controls/Splitter.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>

namespace {

class CountingSplitter : public Splitter {
public:
    using Splitter::Splitter;
    void Place(const SplitterLayout& layout) override
    {
        ++layouts;
        Splitter::Place(layout);
        if (onPlace) onPlace();
    }
    int layouts = 0;
    std::function<void()> onPlace;
};

// outer { left, inner { top, bottom } } at 96 pixels an inch, so that a twip is a fifteenth of a pixel.
class SplitterTest : public testing::Test {
protected:
    SplitterTest()
    {
        inner->SetOrientation(1);
        EXPECT_TRUE(outer->SetLeftOrTopCtl(left) && outer->SetRightOrBottomCtl(inner));
        EXPECT_TRUE(inner->SetLeftOrTopCtl(top) && inner->SetRightOrBottomCtl(bottom));
        Resize({403, 203});
        window.show();
        window.activateWindow();
        QTest::qWait(0);
    }

    void Resize(QSize size)
    {
        window.resize(size);
        outer->resize(size);
    }

    static void Mouse(QEvent::Type type, QWidget* bar, int x)
    {
        const QPointF at(x, 5);
        const bool isMove = type == QEvent::MouseMove, isUp = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, bar->mapToGlobal(at), isMove ? Qt::NoButton : Qt::LeftButton,
                          isUp ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &event);
    }

    QWidget window;
    CountingSplitter* const outer = new CountingSplitter(QStringLiteral("outer"), &window);
    CountingSplitter* const inner = new CountingSplitter(QStringLiteral("inner"), outer);
    QLineEdit* const left = new QLineEdit(outer);
    QLineEdit* const top = new QLineEdit(inner);
    QLineEdit* const bottom = new QLineEdit(inner);
};

TEST_F(SplitterTest, LimitsWhatIsSet)
{
    using Limits = std::numeric_limits<std::int32_t>;
    const auto sized = [&](std::int32_t size, int width) {
        outer->resize(width, 9);
        outer->SetSplitterSize(size);
        return outer->SplitterSize();
    };
    EXPECT_EQ(sized(0, 10), 1);
    EXPECT_EQ(sized(149, 10), 149);
    EXPECT_EQ(sized(Limits::max(), 10), 149);
    EXPECT_EQ(sized(60, 0), 1);

    outer->SetSplitterPosMin(120);
    EXPECT_EQ(outer->SplitterPosMin(), 100);
    outer->SetSplitterPosMin(40);
    outer->SetSplitterPosMax(-5);
    EXPECT_EQ(outer->SplitterPosMax(), 40);
    outer->SetSplitterPos(Limits::min());
    EXPECT_EQ(outer->SplitterPos(), 40);
    outer->SetVisiblePanes(7);
    EXPECT_EQ(outer->VisiblePanes(), 0);
}

TEST_F(SplitterTest, LaysOutAndMarksOnlyOnAChange)
{
    outer->layouts = 0;
    outer->SetSplitterPos(50);
    outer->SetOrientation(0);
    EXPECT_EQ(outer->layouts, 0);
    EXPECT_FALSE(outer->IsChanged("SplitterPos"));
    outer->SetOrientation(1);
    EXPECT_EQ(outer->layouts, 1);
    outer->SetSplitterPosMax(30);
    EXPECT_TRUE(outer->IsChanged("SplitterPos")) << "the layout's limit marks it";
    outer->onPlace = [this] { outer->Refresh(); };
    outer->Refresh();
    EXPECT_LT(outer->layouts, 10) << "a control that always asks for a layout";
}

TEST_F(SplitterTest, BindsContainedControlsOnly)
{
    EXPECT_EQ(outer->Controls(0).error().code, 9U);
    EXPECT_EQ(outer->SetControls(3, nullptr).error().code, 9U);
    EXPECT_TRUE(outer->IsChanged("LeftOrTopCtl"));
    const auto refused = outer->SetLeftOrTopCtl(top);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, 0x800403E8U);
    EXPECT_EQ(refused.error().source, "Splitter Control");
    EXPECT_EQ(refused.error().description, "The control must be contained in the Splitter");
    EXPECT_EQ(*outer->Controls(1), left);
}

TEST_F(SplitterTest, PlacesItsControlsSideBySide)
{
    const auto pieces = [&] { return QList{left->geometry(), outer->Bar()->geometry(), inner->geometry()}; };
    EXPECT_EQ(pieces(), (QList{QRect(0, 0, 200, 203), QRect(200, 0, 3, 203), QRect(203, 0, 200, 203)}));
    EXPECT_EQ(top->geometry(), QRect(0, 0, 200, 100));
    EXPECT_EQ(bottom->geometry(), QRect(0, 103, 200, 100));
    outer->setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(pieces(), (QList{QRect(203, 0, 200, 203), QRect(200, 0, 3, 203), QRect(0, 0, 200, 203)}));
}

TEST_F(SplitterTest, SurvivesAnySizeAndLaysEachLevelOutOnce)
{
    outer->layouts = inner->layouts = 0;
    for (int i = 1; i <= 10'000; ++i) {
        Resize({1 + (i * 37) % 900, 1 + (i * 53) % 700});
        ASSERT_EQ(outer->layouts, i);
        ASSERT_LE(inner->layouts, i);
        for (const auto* const piece : {left, top, bottom})
            EXPECT_TRUE(piece->width() >= 0 && piece->height() >= 0);
        const auto bar = outer->Bar()->geometry();
        EXPECT_TRUE(outer->width() < 4 || left->geometry().right() + 1 == bar.left()) << outer->width();
        EXPECT_TRUE(outer->width() < 4 || bar.right() + 1 == inner->x()) << outer->width();
    }
    EXPECT_GT(inner->layouts, 9'000);
    Resize({1, 1});
    Mouse(QEvent::MouseButtonPress, outer->Bar(), 0);
    Mouse(QEvent::MouseMove, outer->Bar(), 10);
    Mouse(QEvent::MouseButtonRelease, outer->Bar(), 10);
    EXPECT_EQ(outer->SplitterPos(), 50) << "without a free length there is no position";
    EXPECT_TRUE(outer->Bar()->geometry().contains(outer->rect())) << "thinner than its bar";
    outer->SetVisiblePanes(2);
    EXPECT_EQ(inner->geometry(), QRect(0, 0, 1, 1));
    EXPECT_FALSE(outer->Bar()->isVisible());
    Resize({403, 203});
    EXPECT_EQ(left->size(), QSize(0, 0));
    EXPECT_FALSE(left->geometry().intersects(outer->rect()));
}

TEST_F(SplitterTest, IsDraggedByItsBar)
{
    auto* const bar = outer->Bar();
    QSignalSpy begun(outer, &Splitter::SplitBegin), completed(outer, &Splitter::SplitComplete);
    outer->SetSplitterPosMin(10);
    Mouse(QEvent::MouseButtonPress, bar, 0);
    EXPECT_EQ(begun.count(), 1);
    EXPECT_EQ(outer->children().last(), bar) << "on top of all";
    Mouse(QEvent::MouseMove, bar, -80);
    EXPECT_EQ(bar->x(), 120);
    EXPECT_EQ(left->width(), 200);
    Mouse(QEvent::MouseMove, bar, -5000);
    EXPECT_EQ(bar->x(), 40);
    Mouse(QEvent::MouseMove, bar, 60);
    Mouse(QEvent::MouseButtonRelease, bar, 0);
    EXPECT_EQ(left->width(), 100);
    EXPECT_EQ(completed.count(), 1);

    outer->setLayoutDirection(Qt::RightToLeft);
    Mouse(QEvent::MouseButtonPress, bar, 3);
    Mouse(QEvent::MouseMove, bar, 3 - 50);
    Mouse(QEvent::MouseButtonRelease, bar, 3);
    EXPECT_EQ(left->width(), 150);
    outer->SetEnabled(false);
    Mouse(QEvent::MouseButtonPress, bar, 0);
    EXPECT_EQ(begun.count(), 2);
}

TEST_F(SplitterTest, EndsADragThatIsTakenBackOrCutShort)
{
    auto* const bar = outer->Bar();
    QSignalSpy completed(outer, &Splitter::SplitComplete);
    QShortcut stop(Qt::Key_Escape, &window);
    QSignalSpy stopped(&stop, &QShortcut::activated);
    top->setFocus();
    Mouse(QEvent::MouseButtonPress, bar, 0);
    Mouse(QEvent::MouseMove, bar, 60);
    QTest::keyClick(top, Qt::Key_Escape);
    EXPECT_EQ(bar->x(), 200);
    EXPECT_EQ(completed.count(), 1);
    EXPECT_EQ(stopped.count(), 0);
    Mouse(QEvent::MouseMove, bar, 60);
    EXPECT_EQ(bar->x(), 200);

    Mouse(QEvent::MouseButtonPress, bar, 0);
    outer->SetVisiblePanes(1);
    EXPECT_FALSE(outer->IsDragging());
    outer->SetVisiblePanes(0);
    Mouse(QEvent::MouseButtonPress, bar, 0);
    outer->SetEnabled(false);
    EXPECT_FALSE(outer->IsDragging());
    outer->SetEnabled(true);
    Mouse(QEvent::MouseButtonPress, bar, 0);
    delete outer;
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(stopped.count(), 1);
}

TEST_F(SplitterTest, IsMovedWithTheKeyboard)
{
    auto* const bar = outer->Bar();
    bar->setFocus();
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int position;
    } presses[] = {
        {Qt::Key_Right, {}, 51},    {Qt::Key_Right, Qt::ControlModifier, 61},
        {Qt::Key_Left, {}, 60},     {Qt::Key_PageUp, {}, 50},
        {Qt::Key_PageDown, {}, 60}, {Qt::Key_Up, {}, 60},
        {Qt::Key_Home, {}, 10},     {Qt::Key_Left, {}, 10},
        {Qt::Key_End, {}, 90},      {Qt::Key_Right, Qt::ShiftModifier, 90},
        {Qt::Key_Escape, {}, 50},   {Qt::Key_Escape, {}, 50},
        {Qt::Key_Left, {}, 49},     {Qt::Key_Return, {}, 49},
        {Qt::Key_Escape, {}, 49},
    };
    outer->SetSplitterPosMin(10);
    outer->SetSplitterPosMax(90);
    for (const auto& press : presses) {
        QTest::keyClick(bar, press.key, press.modifiers);
        EXPECT_EQ(outer->SplitterPos(), press.position) << press.key;
    }
    outer->setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(bar, Qt::Key_Left);
    EXPECT_EQ(outer->SplitterPos(), 50);
    QTest::keyClick(inner->Bar(), Qt::Key_Down);
    EXPECT_EQ(inner->SplitterPos(), 51);
}

TEST_F(SplitterTest, LetsControlsGoAtAnyTime)
{
    auto* const twice = new QLineEdit(inner);
    EXPECT_TRUE(inner->SetControls(1, twice) && inner->SetControls(2, twice));
    delete twice;  // which was in both panes
    EXPECT_TRUE(inner->SetControls(1, top) && inner->SetControls(2, bottom));
    delete top;
    EXPECT_EQ(inner->LeftOrTopCtl()->objectName(), QStringLiteral("lblFrame(1)"));
    EXPECT_TRUE(inner->LeftOrTopCtl()->isVisible());
    bottom->setParent(&window);
    EXPECT_EQ(outer->Panes().FindChildControl(bottom), nullptr);
    EXPECT_FALSE(inner->SetControls(2, bottom));
    delete inner;
    EXPECT_EQ(outer->Panes().Item(2)->Child(), nullptr);
    Resize({300, 100});
    window.hide();
    EXPECT_EQ(outer->RightOrBottomCtl(), nullptr);
    window.show();
    EXPECT_EQ(outer->RightOrBottomCtl()->width(), 148);
}

TEST_F(SplitterTest, LeadsTheFocusFromPaneToPane)
{
    auto* const group = new QWidget(&window);
    QLineEdit first, second;
    for (auto* const edit : {&first, &second}) edit->setParent(group);
    group->setParent(outer);
    group->show();
    ASSERT_TRUE(outer->SetControls(1, group));
    delete left;
    OrderTabs(outer->Panes());
    first.setFocus();
    QStringList order;
    const QHash<QWidget*, QString> names{
        {&first, QStringLiteral("1")},       {&second, QStringLiteral("2")},
        {outer->Bar(), QStringLiteral("|")}, {top, QStringLiteral("top")},
        {inner->Bar(), QStringLiteral("-")}, {bottom, QStringLiteral("bottom")},
    };
    for (int i = 0; i < 6; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order += names.value(QApplication::focusWidget());
    }
    EXPECT_EQ(order.join(u' ').toStdString(), "2 | top - bottom 1");

    const auto next = [&](bool isForward) {
        EXPECT_TRUE(FocusNextPane(outer->Panes(), isForward));
        return QApplication::focusWidget();
    };
    EXPECT_EQ(next(true), top);
    second.setFocus();
    EXPECT_EQ(next(false), bottom);
    outer->Panes().FindChildControl(bottom)->SetEnabled(false);
    EXPECT_EQ(QApplication::focusWidget(), top) << "not out of sight";
    EXPECT_EQ(next(true), &second) << "where it was before";
    group->setEnabled(false);
    top->setFocus();
    EXPECT_FALSE(FocusNextPane(outer->Panes(), true));
}

TEST_F(SplitterTest, LetsKeysAndToolsPassByWhatIsOutOfSight)
{
    auto* const pane = outer->Panes().Item(2);
    const auto isInvisible = [](QWidget* one) {
        return bool(QAccessible::queryAccessibleInterface(one)->state().invisible);
    };
    for (const bool isInner : {true, false}) {
        auto* const gone = isInner ? inner->Panes().Item(1) : pane;
        gone->SetEnabled(false);
        left->setFocus();
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_NE(QApplication::focusWidget(), top);
        }
        EXPECT_TRUE(isInvisible(top));
        gone->SetEnabled(true);
        EXPECT_FALSE(isInvisible(top));
        EXPECT_TRUE(top->width() == 200 && top->height() == 100);
    }
    pane->SetEnabled(false);
    EXPECT_TRUE(outer->SetControls(2, nullptr));
    EXPECT_FALSE(inner->isHidden()) << "no longer the pane's";
    inner->hide();
    EXPECT_TRUE(outer->SetControls(2, inner));
    pane->SetEnabled(true);
    EXPECT_TRUE(inner->isHidden()) << "the host's will";
}

TEST_F(SplitterTest, TellsItsBarToAssistiveTools)
{
    auto* const bar = QAccessible::queryAccessibleInterface(outer->Bar());
    ASSERT_TRUE(bar && bar->valueInterface());
    EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("Divider"));
    left->setAccessibleName(QStringLiteral("Files"));
    bottom->setAccessibleName(QStringLiteral("Totals %1"));
    EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("Divider between Files and Totals %1"));
    outer->setAccessibleName(QStringLiteral("Files and panels"));
    EXPECT_EQ(bar->role(), QAccessible::Splitter);
    EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("Files and panels"));
    EXPECT_TRUE(bar->state().focusable);
    bar->valueInterface()->setCurrentValue(70);
    EXPECT_EQ(bar->valueInterface()->currentValue(), 70);
    EXPECT_EQ(bar->valueInterface()->maximumValue(), 100);
    EXPECT_EQ(bar->text(QAccessible::Value), QStringLiteral("70 %"));
    outer->SetEnabled(false);
    bar->valueInterface()->setCurrentValue(20);
    EXPECT_EQ(outer->SplitterPos(), 70);
    EXPECT_TRUE(bar->state().disabled);
}

}  // namespace
