#pragma once

#include "controls/MouseArgs.h"

#include <QWidget>

// A surface that tells what the mouse does on it. A click is the left button, down and up again inside.
class MouseTeller : public QWidget {
    Q_OBJECT

public:
    explicit MouseTeller(QWidget* parent);

Q_SIGNALS:
    void Click();
    void DblClick();
    void MouseDown(const MouseArgs& args);
    void MouseMove(const MouseArgs& args);
    void MouseUp(const MouseArgs& args);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool m_isPressed = false;
};
