#include "shell/WindowPlacer.h"

#include <gtest/gtest.h>

#include <QScreen>
#include <QTest>

namespace {

// A window that was placed, shown and seen by the window system.
struct PlacedWindow {
    explicit PlacedWindow(const WindowPlacement& placement) : placer(window)
    {
        placer.Place(placement);
        window.show();
        QTest::qWait(1);
    }

    QMainWindow window;
    WindowPlacer placer;
};

WindowPlacement At(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height)
{
    return {WindowState::Normal, left, top, width, height};
}

bool SamePlace(const WindowPlacement& left, const WindowPlacement& right)
{
    return left.state == right.state && left.left == right.left && left.top == right.top &&
           left.width == right.width && left.height == right.height;
}

TEST(WindowPlacer, TheStateHoldsAndLeavesTheNormalPlacementAlone)
{
    for (const auto state : {WindowState::Maximized, WindowState::Minimized}) {
        auto placement = At(600, 450, 9000, 6000);
        placement.state = state;
        PlacedWindow placed(placement);
        EXPECT_EQ(placed.window.isMaximized(), state == WindowState::Maximized);
        EXPECT_EQ(placed.window.isMinimized(), state == WindowState::Minimized);
        EXPECT_TRUE(SamePlace(placed.placer.Read(), placement));
    }
    PlacedWindow placed(At(600, 450, 9000, 6000));
    placed.window.showMaximized();
    EXPECT_EQ(placed.placer.Read().state, WindowState::Maximized);
    placed.window.showFullScreen();
    EXPECT_EQ(placed.placer.Read().state, WindowState::Maximized);
    placed.window.showNormal();
    placed.window.move(50, 60);
    EXPECT_TRUE(SamePlace(placed.placer.Read(), At(750, 900, 9000, 6000)));
}

TEST(WindowPlacer, BringsAWindowBackOntoTheScreen)
{
    const PlacedWindow placed(At(-90'000, 2'147'483'647, 2'147'483'647, 1));
    const auto screen = placed.window.screen()->availableGeometry();
    EXPECT_TRUE((screen + QMargins(0, 0, 4, 4)).contains(placed.window.geometry()));
    EXPECT_GE(placed.window.width(), 200);
}

}  // namespace
