#include "controls/ActiveHeader.h"
#include "controls/PlainText.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFontMetricsF>
#include <QSignalSpy>
#include <QTest>

#include <cctype>

namespace {

TEST(ActiveHeader, ShortensItsCaption)
{
    ActiveHeader header;
    header.SetCaption("Performance Summary (Boost 215.40%)");
    header.resize(600, 19);
    EXPECT_EQ(header.ShownCaption(), QString::fromStdString(header.Caption()));
    const QFontMetricsF metrics(header.font());
    for (int width = 1; width < 300; ++width) {
        header.resize(width, 19);
        const double room = width - 15 - 2 * 2 - 3 - 6;  // close button, borders and gaps
        const auto shown = header.ShownCaption();
        if (shown == QString::fromStdString(header.Caption())) break;
        if (shown.isEmpty()) {
            EXPECT_GT(metrics.horizontalAdvance(QStringLiteral("...")), room - 1) << width;
            continue;
        }
        ASSERT_TRUE(shown.endsWith(QStringLiteral("..."))) << width;
        const double unused = room - metrics.horizontalAdvance(shown);
        EXPECT_GE(unused, -0.1) << width;
        EXPECT_LE(unused, metrics.horizontalAdvance(QStringLiteral("W.")) + 0.1) << width;
    }
}

TEST(ActiveHeader, BearsEveryCaptionAndFont)
{
    ActiveHeader header;
    header.resize(120, 19);
    std::string accents = "e";
    for (int i = 0; i < 3000; ++i) accents += "\xCC\x81";
    const std::string captions[] = {std::string(20'000'000, 'W'),
                                    "<b>bold</b>\n<img src=x>&amp;",
                                    std::string("\0\x1B[2J\xFF", 6),
                                    accents,
                                    "\xE2\x80\xAE"
                                    "evil \xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80",
                                    "\xEF\xB7\xBD\xEF\xB7\xBD\xEF\xB7\xBD\xEF\xB7\xBD\xEF\xB7\xBD",
                                    "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"};
    for (const int points : {1, 9, 200}) {
        header.SetFont(QFont(QStringLiteral("Sans"), points));
        for (const auto& caption : captions) {
            header.SetCaption(caption);
            const auto plain = PlainText(caption);
            auto shown = header.ShownCaption();
            if (shown != plain && !shown.isEmpty()) {
                shown.chop(3);
                EXPECT_TRUE(plain.startsWith(shown));
                EXPECT_FALSE(shown.endsWith(u'\xD83D')) << "half a character";
            }
            EXPECT_EQ(header.accessibleName(), plain);
            EXPECT_FALSE(header.grab().isNull());
        }
    }
}

TEST(ActiveHeader, PlacesItsCloseButton)
{
    ActiveHeader header;
    header.show();
    auto& close = header.CloseButton();
    header.resize(200, 19);
    EXPECT_EQ(close.geometry(), QRect(200 - 3 - 15, 2, 15, 15));
    header.resize(200, 10);
    EXPECT_EQ(close.height(), 6);
    header.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(close.x(), 3);
    header.resize(1, 1);
    EXPECT_GE(close.height(), 0);
    header.SetEnabled(false);
    EXPECT_TRUE(close.isHidden());
    header.SetEnabled(true);
    EXPECT_FALSE(close.isHidden());
}

TEST(ActiveHeader, TellsTheMouseAndTheClose)
{
    ActiveHeader header;
    header.resize(200, 19);
    header.show();
    QSignalSpy clicks(&header, &ActiveHeader::Click);
    QSignalSpy closes(&header, &ActiveHeader::CloseClick);
    std::vector<MouseArgs> downs;
    QObject::connect(&header, &ActiveHeader::MouseDown,
                     [&](const MouseArgs& args) { downs.push_back(args); });
    QTest::mouseClick(&header, Qt::LeftButton, {}, {10, 4});
    QTest::mouseClick(&header, Qt::RightButton, Qt::ShiftModifier, {20, 4});
    EXPECT_EQ(clicks.count(), 1);
    ASSERT_EQ(downs.size(), 2U);
    EXPECT_TRUE(downs[1].button == 2 && downs[1].shift == 1 && downs[1].x == 300 && downs[1].y == 60);
    QTest::mouseClick(&header.CloseButton(), Qt::LeftButton);
    EXPECT_EQ(closes.count(), 1);
    EXPECT_EQ(downs.size(), 2U);
}

TEST(ActiveHeader, KeepsItsPropertiesByName)
{
    ActiveHeader header;
    PropertyBag bag;
    header.Save(bag);
    EXPECT_EQ(bag.Count(), 0U);
    QPixmap image(3, 4);
    image.fill(Qt::red);
    header.SetImage(image);
    header.SetCaption("A & B");
    header.SetBorderWidth(5);
    header.SetBackColor(255);
    header.SetFont(QFont(QStringLiteral("Sans"), 17));
    header.Save(bag);
    EXPECT_EQ(bag.Count(), 5U);
    ActiveHeader other;
    other.Load(bag);
    EXPECT_EQ(other.Image().size(), QSize(3, 4));
    EXPECT_TRUE(other.Caption() == "A & B" && other.BorderWidth() == 5 && other.Font().pointSize() == 17);
    EXPECT_EQ(other.CloseButton().BackColor(), 255U);
}

// Each step of a story: P press, M move, R release; a capital letter inside, a small one outside; the left
// button, or the right one after '2'.
TEST(ActiveButton, FollowsTheMouse)
{
    const struct {
        const char* story;
        ButtonModel::Look look;
        int clicks;
    } cases[] = {
        {"M", ButtonModel::Hot, 0},       {"MP", ButtonModel::Pressed, 0},  {"MPm", ButtonModel::Normal, 0},
        {"MPmMR", ButtonModel::Hot, 1},   {"MPmr", ButtonModel::Normal, 0}, {"M2P2R", ButtonModel::Hot, 0},
        {"MP2PR2R", ButtonModel::Hot, 1}, {"Mpm", ButtonModel::Normal, 0},  {"mPR", ButtonModel::Hot, 1},
    };
    for (const auto& one : cases) {
        ActiveButton button;
        button.resize(20, 40);
        QSignalSpy clicks(&button, &ActiveButton::Click);
        auto which = Qt::LeftButton;
        for (const char* step = one.story; *step != 0; ++step) {
            if (*step == '2') {
                which = Qt::RightButton;
                continue;
            }
            const QPointF at = std::isupper(*step) != 0 ? QPointF(10, 20) : QPointF(500, 500);
            const auto kind = std::toupper(*step);
            QMouseEvent event(kind == 'P'   ? QEvent::MouseButtonPress
                              : kind == 'R' ? QEvent::MouseButtonRelease
                                            : QEvent::MouseMove,
                              at, at, kind == 'M' ? Qt::NoButton : which, {}, {});
            QCoreApplication::sendEvent(&button, &event);
            which = Qt::LeftButton;
        }
        EXPECT_EQ(button.State(), one.look) << one.story;
        EXPECT_EQ(clicks.count(), one.clicks) << one.story;
    }
}

TEST(ActiveButton, LightsUpSinksAndClicks)
{
    QWidget window;
    ActiveButton button(&window);
    button.setGeometry(0, 0, 20, 40);
    button.SetBackColor(0x000000FF);
    button.SetActiveBackColor(0x0000FF00);
    for (const auto& [wanted, fitting] : {std::pair(15, 10), {-3, 0}, {1, 1}}) {
        button.SetBorderWidth(wanted);
        EXPECT_EQ(button.BorderWidth(), fitting) << "at most half of the button";
    }
    window.show();
    QSignalSpy clicks(&button, &ActiveButton::Click);
    const auto middle = [&] { return button.grab().toImage().pixelColor(10, 20); };
    EXPECT_EQ(middle(), QColor(255, 0, 0));
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_EQ(button.State(), ButtonModel::Pressed);
    EXPECT_EQ(middle(), QColor(0, 255, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {500, 500});
    EXPECT_EQ(clicks.count(), 0);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 3);
    button.setEnabled(false);
    button.PressOnce();
    EXPECT_EQ(clicks.count(), 3);
    EXPECT_EQ(button.State(), ButtonModel::Normal);
}

TEST(ActiveButton, CanBePressedByAssistiveTools)
{
    ActiveHeader header;
    header.SetCaption("Cache Totals");
    QSignalSpy closes(&header, &ActiveHeader::CloseClick);
    auto* const close = QAccessible::queryAccessibleInterface(&header.CloseButton());
    ASSERT_TRUE(close && close->actionInterface());
    EXPECT_EQ(close->role(), QAccessible::PushButton);
    EXPECT_EQ(close->text(QAccessible::Name), QStringLiteral("Close Cache Totals"));
    close->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(closes.count(), 1);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&header)->role(), QAccessible::Heading);
}

}  // namespace
