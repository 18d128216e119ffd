#pragma once

#include "settings/WindowPlacement.h"

#include <QMainWindow>

// Puts the main window where a placement says, and tells where it stands. Positions are those of the frame,
// sizes those of the window in it: what a window system takes and gives without knowing the other's frame,
// so that a placement comes back as it was however often it is saved and loaded.
class WindowPlacer {
public:
    explicit WindowPlacer(QMainWindow& window) : m_window(window) {}  // which must outlive this

    // Takes the state and, unless that is maximized, the position and size, on a screen that is present.
    // Best before the window is shown first.
    void Place(const WindowPlacement& placement);

    // While the window is minimized or maximized the rectangle is the one that it had when it was placed, and
    // so is the position always where a window system does not tell it.
    WindowPlacement Read() const;

private:
    QMainWindow& m_window;
    WindowPlacement m_placed;
};
