#include "controls/PanelSurface.h"

#include <QChildEvent>
#include <QResizeEvent>

PanelSurface::PanelSurface(QWidget* parent) : MouseTeller(parent), m_contained(*this)
{
    setAutoFillBackground(true);
}

bool PanelSurface::event(QEvent* event)
{
    if (event->type() == QEvent::ChildRemoved) {
        m_contained.Forget(static_cast<QChildEvent*>(event)->child());
    } else if (event->type() == QEvent::ChildPolished) {
        auto* const control = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
        if (control && m_contained.Contains(control)) Q_EMIT ControlAdded(control);
    } else if (event->type() == QEvent::LayoutDirectionChange) {
        m_contained.Flip();
    }
    return MouseTeller::event(event);
}

void PanelSurface::resizeEvent(QResizeEvent* event)
{
    m_contained.SurfaceResized(event->oldSize().width());
}
