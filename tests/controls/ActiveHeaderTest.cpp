#include "controls/ActiveHeader.h"
#include "controls/PlainText.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFontMetricsF>
#include <QSignalSpy>
#include <QTest>

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
    header.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(close.x(), 3);
    header.resize(1, 1);
    EXPECT_GE(close.height(), 0);
    header.SetEnabled(false);
    EXPECT_TRUE(close.isHidden());
    header.SetEnabled(true);
    EXPECT_FALSE(close.isHidden());
}

TEST(ActiveButton, IsClickedByMouseAndKeysUntilItIsDisabled)
{
    QWidget window;
    ActiveButton button(&window);
    button.setGeometry(0, 0, 20, 40);
    window.show();
    QSignalSpy clicks(&button, &ActiveButton::Click);
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
