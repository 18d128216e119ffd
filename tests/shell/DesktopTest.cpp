// The window's ways to the desktop: message boxes, event loop, mouse pointer.
#include "shell/ConsoleBoxes.h"
#include "shell/QtMessageBoxes.h"
#include "shell/QtMessagePump.h"
#include "shell/QtScreenPointer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <sstream>

namespace {

TEST(QtMessageBoxes, ShowPlainTextAndAnswerWithTheButtonPressed)
{
    const struct {
        BoxStyle style;
        QMessageBox::StandardButton press;
        QMessageBox::Icon icon;
        BoxAnswer answer;
    } cases[] = {
        {BoxStyle::Exclamation, QMessageBox::Ok, QMessageBox::Warning, BoxAnswer::Ok},
        {BoxStyle::YesNoQuestion, QMessageBox::Yes, QMessageBox::Question, BoxAnswer::Yes},
        {BoxStyle::YesNo, QMessageBox::No, QMessageBox::NoIcon, BoxAnswer::No},
    };
    QtScreenPointer pointer;
    pointer.Set(ScreenPointer::Hourglass);
    for (const auto& one : cases) {
        QTimer::singleShot(0, [&one, &pointer] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->text(), QString::fromUtf16(u"<b>no</b>\n(Error 5)\u2409"));
            EXPECT_EQ(box->icon(), one.icon);
            EXPECT_EQ(pointer.Get(), ScreenPointer::Default) << "nothing is busy";
            box->button(one.press)->click();
        });
        EXPECT_EQ(QtMessageBoxes(pointer).Show("<b>no</b>\r\n(Error 5)\t", one.style, "title"), one.answer);
        EXPECT_EQ(pointer.Get(), ScreenPointer::Hourglass);
    }
}

TEST(ConsoleBoxes, WriteOneLineAndNeverWait)
{
    std::ostringstream out;
    ConsoleBoxes boxes(out);
    EXPECT_EQ(boxes.Show("No\r\n(Error 5)\x1B", BoxStyle::Exclamation, "Title"), BoxAnswer::Ok);
    EXPECT_EQ(boxes.Show("Really?", BoxStyle::YesNoQuestion, "T"), BoxAnswer::No);
    EXPECT_EQ(out.str(), "Title: No (Error 5)\\x1b\nT: Really?\n");
}

TEST(QtMessagePump, EntersTheEventLoopNowAndThen)
{
    QtMessagePump pump;
    int visits = 0;
    const auto post = [&] { QTimer::singleShot(0, [&] { ++visits; }); };
    post();
    pump.Run();
    EXPECT_EQ(visits, 1);
    post();
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 1000; ++i) pump.Run();
    const bool wasBusyElsewhere = time.elapsed() > 5;
    EXPECT_TRUE(visits == 1 || wasBusyElsewhere);
    QTest::qSleep(30);
    pump.Run();
    EXPECT_EQ(visits, 2);
}

}  // namespace
