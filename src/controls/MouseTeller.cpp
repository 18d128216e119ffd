#include "controls/MouseTeller.h"

#include <QPointer>

MouseTeller::MouseTeller(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
}

void MouseTeller::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) m_isPressed = true;
    Q_EMIT MouseDown(ToMouseArgs(*event, *this));
}

void MouseTeller::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT MouseMove(ToMouseArgs(*event, *this));
}

void MouseTeller::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<MouseTeller> self(this);
    const bool isLeft = event->button() == Qt::LeftButton;
    const bool isClick = isLeft && m_isPressed && rect().contains(event->position().toPoint());
    if (isLeft) m_isPressed = false;
    Q_EMIT MouseUp(ToMouseArgs(*event, *this));
    if (self && isClick) Q_EMIT Click();
}

void MouseTeller::mouseDoubleClickEvent(QMouseEvent*)
{
    Q_EMIT DblClick();
}
