#include "shell/WindowPlacer.h"

#include <QGuiApplication>
#include <QScreen>

#include <vector>

namespace {

bool ProgramsPlaceWindows()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

// One resolution for all screens, so that a window on any of them comes back to where it was.
double Dpi()
{
    return QGuiApplication::primaryScreen()->logicalDotsPerInch();
}

std::vector<PixelRect> Screens()
{
    std::vector<PixelRect> screens;
    for (const auto* screen : QGuiApplication::screens()) {
        const auto area = screen->availableGeometry();
        screens.push_back({area.x(), area.y(), area.width(), area.height()});
    }
    return screens;
}

WindowState StateOf(const QWidget& window)
{
    if (window.isMinimized()) return WindowState::Minimized;
    return window.isMaximized() || window.isFullScreen() ? WindowState::Maximized : WindowState::Normal;
}

Qt::WindowState QtState(WindowState state)
{
    switch (state) {
    case WindowState::Minimized: return Qt::WindowMinimized;
    case WindowState::Maximized: return Qt::WindowMaximized;
    case WindowState::Normal: break;
    }
    return Qt::WindowNoState;
}

}  // namespace

void WindowPlacer::Place(const WindowPlacement& placement)
{
    m_placed = placement;
    m_window.setWindowState(QtState(placement.state));
    if (placement.state == WindowState::Maximized) return;
    const auto place = OntoScreens(PixelsOf(placement, Dpi()), Screens());
    m_window.move(static_cast<int>(place.x), static_cast<int>(place.y));
    m_window.resize(static_cast<int>(place.width), static_cast<int>(place.height));
}

WindowPlacement WindowPlacer::Read() const
{
    auto placement = m_placed;
    placement.state = StateOf(m_window);
    if (placement.state != WindowState::Normal) return placement;
    SetPixels(placement, {m_window.x(), m_window.y(), m_window.width(), m_window.height()}, Dpi());
    if (!ProgramsPlaceWindows()) {
        placement.left = m_placed.left;
        placement.top = m_placed.top;
    }
    return placement;
}
