#include "controls/CustomToolBar.h"
#include "controls/CustomizeDialog.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <memory>
#include <string>

namespace {

// A window with a bar of four buttons.
class Toolbar : public testing::Test {
protected:
    Toolbar()
    {
        window.addToolBar(bar);
        bar->SetButtons({{u"Connect"_qs, u" Connect "_qs, u"Connect"_qs, u"To a server"_qs, u"Connect"_qs},
                         {u"Stop"_qs, u" Stop "_qs, u"Stop Reload"_qs, u"Stops"_qs, u"Stop"_qs},
                         {{}},
                         {u"Panels"_qs,
                          u" Panels "_qs,
                          u"View Panels"_qs,
                          u"Select panels"_qs,
                          u"Views"_qs,
                          {{u"Totals"_qs, u"0"_qs}, {u"File info"_qs, u"2"_qs}}},
                         {u"Help"_qs, u" Help "_qs, u"Help"_qs, u"Help"_qs, u"Help"_qs}});
        window.resize(700, 400);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QToolButton* Shown(const char* key) const
    {
        return qobject_cast<QToolButton*>(bar->widgetForAction(bar->Button(key)));
    }
    std::string OnBar() const  // for example "Connect - Help"
    {
        QStringList names;
        for (const auto* const action : bar->actions())
            names << (action->isSeparator() ? u"-"_qs : action->objectName());
        return names.join(u' ').toStdString();
    }
    void Open()
    {
        bar->Customize();
        dialog = window.findChild<QDialog*>(u"CustomizeDialog"_qs);
        available = dialog->findChild<QListWidget*>(u"lstAvailable"_qs);
        current = dialog->findChild<QListWidget*>(u"lstCurrent"_qs);
        EXPECT_TRUE(QTest::qWaitFor([this] { return current->hasFocus(); }));
    }
    static std::string Texts(const QListWidget* list)
    {
        QStringList texts;
        for (int row = 0; row < list->count(); ++row) texts << list->item(row)->text();
        return texts.join(u'|').toStdString();
    }
    void Press(const char* name)
    {
        QTest::mouseClick(dialog->findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }

    // What the system sends for a drag by the mouse, to above the middle of a row; a row that there is not
    // stands for the space below the others.
    static void DragItem(QListWidget* from, int row, QListWidget* to, int before)
    {
        const std::unique_ptr<QMimeData> data(from->model()->mimeData({from->model()->index(row, 0)}));
        const auto* const item = to->item(before);
        const auto place = item == nullptr ? to->viewport()->rect().bottomLeft() - QPoint(-9, 3)
                                           : to->visualItemRect(item).topLeft() + QPoint(9, 2);
        QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QDragMoveEvent move(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
        for (QDropEvent* const event :
             {static_cast<QDropEvent*>(&enter), static_cast<QDropEvent*>(&move), &drop}) {
            QCoreApplication::sendEvent(to->viewport(), event);
            EXPECT_TRUE(event->isAccepted()) << event->type();
        }
        QCoreApplication::processEvents();
    }

    QMainWindow window;
    CustomToolBar* const bar = new CustomToolBar(u"Toolbar"_qs, &window);
    QDialog* dialog = nullptr;
    QListWidget* available = nullptr;
    QListWidget* current = nullptr;
    const std::string standard = "Connect Stop - Panels Help";
};

TEST_F(Toolbar, TellsOfClicksAndMenuEntries)
{
    QSignalSpy clicked(bar, &CustomToolBar::ButtonClicked), chosen(bar, &CustomToolBar::EntryClicked);
    EXPECT_EQ(OnBar(), standard);
    QTest::mouseClick(Shown("Stop"), Qt::LeftButton);
    EXPECT_FALSE(Shown("Stop")->hasFocus());
    Shown("Help")->setFocus();
    QTest::keyClick(Shown("Help"), Qt::Key_Return);
    QTest::keyClick(Shown("Help"), Qt::Key_Space);
    QCoreApplication::processEvents();
    ASSERT_EQ(clicked.count(), 3);
    EXPECT_EQ(clicked[0][0], u"Stop"_qs);
    EXPECT_EQ(clicked[1][0], u"Help"_qs);

    auto* const menu = bar->Button("Panels")->menu();
    const auto chooseSecond = [&] {
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    };
    for (const auto key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Space}) {
        QObject::connect(menu, &QMenu::aboutToShow, menu, chooseSecond,
                         static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        Shown("Panels")->setFocus();
        QTest::keyClick(Shown("Panels"), key);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !chosen.isEmpty(); }, 2000)) << key;
        EXPECT_EQ(chosen.value(0), (QVariantList{u"Panels"_qs, u"2"_qs}));
        chosen.clear();
    }
    EXPECT_EQ(clicked.count(), 3) << "a button with a menu is not clicked";
}

TEST_F(Toolbar, AsksForItsMenuWhereverItIsPressedEvenWhenEmpty)
{
    QSignalSpy wanted(bar, &CustomToolBar::MenuWanted);
    const int height = bar->height();
    Shown("Stop")->setEnabled(false);
    for (const auto* const key : {"Connect", "Stop"}) {
        const auto place = Shown(key)->rect().center();
        QTest::mouseClick(Shown(key), Qt::RightButton, {}, place);
        ASSERT_EQ(wanted.count(), 1) << key;
        EXPECT_EQ(wanted.takeFirst()[0], Shown(key)->mapToGlobal(place)) << key;
    }
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent event(reason, {1, 1}, {7, 8});
        QCoreApplication::sendEvent(Shown("Help"), &event);
        EXPECT_TRUE(event.isAccepted()) << "the window's own menu stays away";
    }
    ASSERT_EQ(wanted.count(), 1) << "by the key; the mouse's press has been told";
    EXPECT_EQ(wanted.takeFirst()[0], QPoint(7, 8));
    auto layout = bar->Arrangement();
    while (layout.Remove(0)) {
    }
    bar->Arrange(layout);
    window.layout()->activate();
    EXPECT_TRUE(bar->actions().isEmpty());
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->height(), height);
    QTest::mouseClick(bar, Qt::RightButton, {}, {40, height / 2});
    EXPECT_EQ(wanted.count(), 1);
}

TEST_F(Toolbar, IsCustomizedByKeys)
{
    Open();
    EXPECT_TRUE(current->hasFocus());
    EXPECT_EQ(Texts(available), "Separator");
    EXPECT_EQ(Texts(current), "Connect|Stop Reload|Separator|View Panels|Help");
    QTest::keyClick(current, Qt::Key_Down);
    QTest::keyClick(current, Qt::Key_Delete);
    QTest::keyClick(current, Qt::Key_Return);
    EXPECT_EQ(OnBar(), "Connect Panels Help") << "shows at once";
    EXPECT_NE(bar->Button("Stop"), nullptr) << "lasts without its place";
    for (const auto key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(current, key, Qt::AltModifier);
    EXPECT_EQ(OnBar(), "Connect Help Panels");

    available->setFocus();
    QTest::keyClick(available, Qt::Key_Insert);
    QTest::keyClick(available, Qt::Key_Down);
    QTest::keyClick(available, Qt::Key_Return);
    EXPECT_EQ(OnBar(), "Connect Help Panels - Stop");
    EXPECT_TRUE(dialog->isVisible()) << "Enter in a list does not close";

    Press("cmdReset");
    EXPECT_EQ(OnBar(), standard);
    QTest::keyClick(current, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Toolbar, IsCustomizedByButtonsThatNeverUndoTheirWork)
{
    Open();
    current->setCurrentRow(2);
    auto* const up = dialog->findChild<QPushButton*>(u"cmdMoveUp"_qs);
    up->setFocus();
    QTest::keyClick(up, Qt::Key_Space);
    QTest::keyClick(up, Qt::Key_Space);
    EXPECT_EQ(OnBar(), "- Connect Stop Panels Help");
    EXPECT_FALSE(up->isEnabled());
    EXPECT_TRUE(current->hasFocus());
    Press("cmdRemove");
    Press("cmdMoveDown");
    Press("cmdAdd");
    EXPECT_EQ(OnBar(), "Stop Connect - Panels Help");
    while (current->count() > 0) Press("cmdRemove");
    EXPECT_TRUE(bar->actions().isEmpty());
    Press("cmdAdd");
    EXPECT_EQ(OnBar(), "-") << "the bar can be filled again";
    bar->RestoreLayout({});
    EXPECT_EQ(current->count(), 5) << "follows the bar";
    bar->Customize();
    EXPECT_EQ(window.findChildren<QDialog*>(u"CustomizeDialog"_qs).size(), 1);
    Press("cmdClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.findChild<QDialog*>(u"CustomizeDialog"_qs), nullptr);
}

}  // namespace

TEST_F(Toolbar, IsCustomizedByTheMouse)
{
    Open();
    DragItem(current, 0, current, 3);
    EXPECT_EQ(OnBar(), "Stop - Connect Panels Help");
    DragItem(current, 4, current, 0);
    EXPECT_EQ(OnBar(), "Help Stop - Connect Panels");
    DragItem(current, 1, available, 0);
    DragItem(current, 0, available, 9);
    EXPECT_EQ(OnBar(), "- Connect Panels");
    DragItem(available, 1, current, 0);
    DragItem(available, 0, current, 9);
    DragItem(available, 0, available, 1);
    EXPECT_EQ(OnBar(), "Stop - Connect Panels -");
    QMimeData foreign;
    foreign.setData(current->model()->mimeTypes().first(), "x");
    QDropEvent drop({9, 2}, Qt::CopyAction, &foreign, Qt::LeftButton, {});
    QCoreApplication::sendEvent(current->viewport(), &drop);
    EXPECT_FALSE(drop.isAccepted()) << "another program's";
    const auto place = current->visualItemRect(current->item(1)).center();
    QTest::mouseClick(current->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(current->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(OnBar(), "Stop Connect Panels -");
}
