#include "shell/QtScreenPointer.h"

#include <QCursor>
#include <QGuiApplication>

QtScreenPointer::~QtScreenPointer()
{
    Show(Default);
}

void QtScreenPointer::Set(int pointer)
{
    m_wanted = pointer;
    if (m_wanted != m_shown && !m_change.isActive()) m_change.start(0, this);
}

void QtScreenPointer::timerEvent(QTimerEvent*)
{
    m_change.stop();
    Show(m_wanted);
}

void QtScreenPointer::Show(int pointer)
{
    if (pointer == m_shown) return;
    if (m_shown == Hourglass) QGuiApplication::restoreOverrideCursor();
    if (pointer == Hourglass) QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    m_shown = pointer;
}
