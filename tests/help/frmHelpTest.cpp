#include "help/frmHelp.h"

#include "help/HelpKey.h"
#include "help/HelpView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

namespace {

constexpr PackedPage kPages[] = {
    {"welcome", "# Welcome\n\nTo the [options](options.md), [out](https://a.example/x.md), "
                "[file](file:///etc/passwd).\n"},
    {"options", "# Options\n\nBack to [welcome](welcome.md). **Needle** and needles.\n"},
    {"deep", "# Deep\n\n![x](/etc/hostname)\n\n| a | b |\n|---|---|\n| needle | 2 |\n"},
};
constexpr std::string_view kContents = "welcome: frmMain\n  options: frmOptions\ndeep: MessageBox frmHelp\n";

class FrmHelpTest : public testing::Test {
protected:
    template <class Kind>
    Kind& Child(const char* name) const
    {
        auto* const child = window.findChild<Kind*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return *child;
    }
    QString Title() const { return page.toPlainText().section(u'\n', 0, 0); }
    QString Chosen() const
    {
        auto* const item = contents.currentItem();
        return item == nullptr ? QString() : item->text(0);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.focusWidget() == nullptr ? &window : window.focusWidget(), key, modifiers);
    }
    void ClickLink(const QString& text)
    {
        const auto place = page.document()->find(text);
        ASSERT_FALSE(place.isNull());
        auto inside = place;
        inside.setPosition(place.selectionStart() + 2);
        QTest::mouseClick(page.viewport(), Qt::LeftButton, {}, page.cursorRect(inside).center());
    }

    HelpBook book{kContents, kPages};
    frmHelp window{book};
    HelpView& page = Child<HelpView>("HelpPage");
    QTreeWidget& contents = Child<QTreeWidget>("HelpContents");
    QListWidget& results = Child<QListWidget>("HelpResults");
    QLineEdit& search = Child<QLineEdit>("HelpSearch");
};

TEST_F(FrmHelpTest, LinksAndHistoryGoThroughTheBookOnly)
{
    window.ShowContents();
    ClickLink(QStringLiteral("out"));
    ClickLink(QStringLiteral("file"));
    EXPECT_EQ(Title(), QStringLiteral("Welcome"));
    ClickLink(QStringLiteral("options"));
    EXPECT_EQ(Title(), QStringLiteral("Options"));
    EXPECT_EQ(Chosen(), QStringLiteral("Options"));
    Press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Title(), QStringLiteral("Welcome"));
    Press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(page.PageKey(), "options");
    window.ShowPage("nowhere");
    EXPECT_EQ(Chosen(), QString());
    Press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Chosen(), QStringLiteral("Welcome"));
    for (const auto* url : {"file:///etc/passwd", "/etc/passwd", "https://a.example/", "help:/options.md"})
        EXPECT_FALSE(page.loadResource(QTextDocument::ImageResource, QUrl(QLatin1String(url))).isValid())
            << url;
    EXPECT_FALSE(
        page.loadResource(QTextDocument::MarkdownResource, QUrl(QStringLiteral("file:///x.md"))).isValid());
    page.setSource(QUrl(QStringLiteral("file:///etc/hostname")));
    EXPECT_EQ(Title(), QStringLiteral("Welcome"));
}

TEST_F(FrmHelpTest, SearchShowsWhatItFindsAndMarksIt)
{
    window.ShowPage("welcome");
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search.hasFocus());
    QTest::keyClicks(&search, QStringLiteral("NEEDLE"));
    EXPECT_TRUE(results.isVisible());
    ASSERT_EQ(results.count(), 2);
    EXPECT_EQ(results.item(0)->text(), QStringLiteral("Options\nBack to welcome. Needle and needles."));
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_EQ(Title(), QStringLiteral("Options"));
    EXPECT_EQ(page.extraSelections().size(), 2);
    window.ShowPage("welcome");
    QTest::mouseClick(results.viewport(), Qt::LeftButton, {},
                      results.visualItemRect(results.item(0)).center());
    EXPECT_EQ(Title(), QStringLiteral("Options")) << "a chosen page that was left";
    search.setFocus();
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_TRUE(results.hasFocus());
    QTest::keyClick(&results, Qt::Key_Down);
    EXPECT_EQ(Title(), QStringLiteral("Deep"));
    search.setText(QStringLiteral("nothing <b>at</b> all"));
    ASSERT_EQ(results.count(), 1);
    EXPECT_EQ(results.item(0)->text(), QStringLiteral("Nothing found."));
}

TEST_F(FrmHelpTest, ThePageIsZoomedWithinBounds)
{
    window.ShowPage("options");
    const double usual = page.font().pointSizeF();
    Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(page.font().pointSizeF(), usual);
    for (int i = 0; i < 50; ++i) page.Zoom(-1);
    EXPECT_GT(page.font().pointSizeF(), 3);
    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(page.font().pointSizeF(), usual);
}

TEST_F(FrmHelpTest, EscapeClosesAndShowingAgainBringsItBack)
{
    window.ShowPage("deep");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    window.ShowContents();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmHelpTest, F1OpensThePageOfTheNearestKnownWindow)
{
    const HelpKey key([this]() -> frmHelp& { return window; });
    QDialog options;
    options.setObjectName(QStringLiteral("frmOptions"));
    QDialog inner(&options);
    inner.setObjectName(QStringLiteral("frmUnknown"));
    QLineEdit box(&inner);
    QMessageBox message(&options);
    QWidget stranger;
    const struct {
        QWidget* widget;
        Qt::KeyboardModifiers modifiers;
        std::string page;
    } cases[] = {{&box, {}, "options"},
                 {&message, {}, "deep"},
                 {&stranger, {}, ""},
                 {&options, Qt::ShiftModifier, ""},
                 {&page, {}, "deep"}};
    for (const auto& [widget, modifiers, expected] : cases) {
        window.ShowPage("welcome");
        window.close();
        QTest::keyClick(widget, Qt::Key_F1, modifiers);
        EXPECT_EQ(window.isVisible(), !expected.empty()) << expected;
        EXPECT_EQ(page.PageKey(), expected.empty() ? "welcome" : expected);
    }
}

TEST_F(FrmHelpTest, ItCanBeUsedOverAModalDialogThatOpensLater)
{
    window.ShowPage("welcome");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const auto clickDeep = [this] {
        const auto rect = contents.visualItemRect(contents.topLevelItem(1));
        const auto place = contents.viewport()->mapTo(&window, rect.center());
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
        QApplication::processEvents();
        return page.PageKey() == "deep";
    };
    QDialog dialog;
    dialog.setObjectName(QStringLiteral("frmOptions"));
    dialog.setModal(true);
    const HelpKey key([this]() -> frmHelp& { return window; });
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_FALSE(clickDeep());
    QTest::keyClick(&dialog, Qt::Key_F1);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(page.PageKey(), "options");
    EXPECT_TRUE(clickDeep());
    dialog.close();
    EXPECT_TRUE(window.isVisible());
    window.ShowPage("welcome");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(clickDeep());
}

}  // namespace
