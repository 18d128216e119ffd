#pragma once

#include <QKeyEvent>
#include <QMouseEvent>

class QWidget;

// What a mouse event of a control tells: in button events the button, in moves all that are down
// (1 left, 2 right, 4 middle); the keys held (1 Shift, 2 Ctrl, 4 Alt); the place in the control, in twips.
struct MouseArgs {
    int button = 0;
    int shift = 0;
    float x = 0;
    float y = 0;
};

int ButtonBits(Qt::MouseButtons buttons);
int ShiftBits(Qt::KeyboardModifiers keys);
MouseArgs ToMouseArgs(const QMouseEvent& event, const QWidget& control);

// Shows the pointer with this number over the control: 0 the usual one, 1 to 15 the system's, 99 the icon.
void ShowPointer(QWidget& control, int pointer, const QPixmap& icon);
