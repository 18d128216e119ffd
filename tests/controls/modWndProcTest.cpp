#include "controls/modWndProc.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include <memory>

namespace {

constexpr auto kMessage = static_cast<QEvent::Type>(QEvent::User + 7);

class Window : public QWidget {
public:
    bool event(QEvent* event) override
    {
        seen += event->type() == kMessage;
        return QWidget::event(event);
    }
    int seen = 0;
};

int Send(Window& window)
{
    QEvent message(kMessage);
    QCoreApplication::sendEvent(&window, &message);
    return window.seen;
}

TEST(modWndProc, EndsWithItsWindowOrInItsOwnProcedure)
{
    std::vector<bool> ended;
    auto window = std::make_unique<Window>();
    const auto last = [&](QWidget* w, QEvent* message) {
        if (message->type() != QEvent::Destroy) return false;
        const bool answer = modWndProc::CallPrevious(w, message);
        ended.push_back(modWndProc::Unsubclass(w));
        return answer;
    };
    ASSERT_TRUE(modWndProc::Subclass(window.get(), last));
    window.reset();
    EXPECT_EQ(ended, std::vector{true});

    window = std::make_unique<Window>();
    ASSERT_TRUE(modWndProc::Subclass(window.get(), [&](QWidget* w, QEvent* m) {
        return m->type() == kMessage && modWndProc::Unsubclass(w) && !modWndProc::CallPrevious(w, m);
    }));
    EXPECT_EQ(Send(*window), 0);
    EXPECT_EQ(Send(*window), 1);
    ASSERT_TRUE(modWndProc::Subclass(window.get(), [&](QWidget*, QEvent* m) {
        if (m->type() == kMessage) window.reset();
        return m->type() == kMessage;
    }));
    QEvent message(kMessage);
    QCoreApplication::sendEvent(window.get(), &message);
    EXPECT_FALSE(window);
}

}  // namespace
