#include "controls/modWndProc.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>

#include <memory>
#include <thread>

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

TEST(modWndProc, StandsBeforeAWindowUntilItIsTakenAway)
{
    Window window;
    QObject owner;
    int firstCalls = 0, secondCalls = 0;
    bool consumes = false, passes = false;
    const auto first = [&](QWidget* w, QEvent* message) {
        if (message->type() != kMessage) return false;
        ++firstCalls;
        return passes ? modWndProc::CallPrevious(w, message) : consumes;
    };
    const auto second = [&](QWidget*, QEvent*) { return ++secondCalls > 0; };
    EXPECT_TRUE(*modWndProc::Subclass(&window, first, &owner));
    EXPECT_TRUE(*modWndProc::Subclass(&window, second));
    EXPECT_EQ(window.property("ObjectPtr").value<QObject*>(), &owner);
    EXPECT_TRUE(window.property("OldWndProc").isValid());
    EXPECT_EQ(Send(window), 1);
    consumes = true;
    EXPECT_EQ(Send(window), 1);
    passes = true;
    EXPECT_EQ(Send(window), 2) << "once, not twice";

    EXPECT_TRUE(modWndProc::Unsubclass(&window));
    EXPECT_FALSE(modWndProc::Unsubclass(&window));
    EXPECT_TRUE(window.dynamicPropertyNames().isEmpty());
    EXPECT_EQ(Send(window), 3);
    EXPECT_TRUE(firstCalls == 3 && secondCalls == 0);
}

TEST(modWndProc, RefusesWithError601)
{
    const auto nothing = [](QWidget*, QEvent*) { return false; };
    const auto refused = modWndProc::Subclass(nullptr, nothing);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, 601U);
    EXPECT_EQ(refused.error().description, "Error subclassing window &H0 (Err# 0: )");
    Window window;
    std::thread([&] { EXPECT_FALSE(modWndProc::Subclass(&window, nothing)); }).join();
    EXPECT_FALSE(modWndProc::Subclass(&window, nullptr));
    EXPECT_TRUE(window.dynamicPropertyNames().isEmpty());
    EXPECT_FALSE(modWndProc::CallPrevious(&window, nullptr));
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
