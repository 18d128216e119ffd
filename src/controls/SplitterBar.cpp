#include "controls/SplitterBar.h"

#include "base/Twips.h"
#include "controls/AccessibleSplitterBar.h"
#include "controls/SplitterCore.h"
#include "controls/SplitterCursor.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

constexpr int kSmallStep = 1;  // percent
constexpr int kLargeStep = 10;

bool IsEscape(const QEvent& event)
{
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    return isKey && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

SplitterBar::SplitterBar(SplitterCore& splitter, QWidget* parent) : QWidget(parent), m_splitter(splitter)
{
    setObjectName(QStringLiteral("picSplit"));
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    InstallSplitterBarAccess();
}

void SplitterBar::ShowColor(const QColor& color)
{
    m_color = color;
    update();
}

void SplitterBar::UpdateCursor()
{
    m_cursorRatio = devicePixelRatioF();
    setEnabled(m_splitter.Enabled());
    if (m_splitter.Enabled()) {
        setCursor(SplitterCursor(m_splitter.CursorStyle(), m_splitter.Orientation(), m_cursorRatio));
    } else {
        setCursor(Qt::ArrowCursor);
    }
}

void SplitterBar::TellPosition()
{
    const int position = m_splitter.SplitterPos();
    if (std::exchange(m_toldPosition, position) == position) return;
    QAccessibleValueChangeEvent event(this, position);
    QAccessible::updateAccessibility(&event);
}

bool SplitterBar::IsMirrored() const
{
    return m_splitter.Orientation() == 0 && isRightToLeft();
}

void SplitterBar::paintEvent(QPaintEvent*)
{
    const bool showsFocus = hasFocus() && !m_splitter.IsDragging();
    QPainter(this).fillRect(rect(), showsFocus ? palette().color(QPalette::Highlight) : m_color);
}

// The window may have come to a screen with other pixels since the cursor was drawn.
void SplitterBar::enterEvent(QEnterEvent* event)
{
    if (m_cursorRatio != devicePixelRatioF()) UpdateCursor();
    QWidget::enterEvent(event);
}

// ---- mouse

void SplitterBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    KeepKeyMoves();
    // The focus stays where the user works, so Escape is looked for in the whole program.
    if (m_splitter.BeginDrag()) QCoreApplication::instance()->installEventFilter(this);
}

void SplitterBar::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_splitter.IsDragging()) return;
    if (!(event->buttons() & Qt::LeftButton)) {
        m_splitter.EndDrag();
        return;
    }
    const auto pointer = mapToParent(event->position().toPoint());
    const bool isMainX = m_splitter.Orientation() == 0;
    const int across = IsMirrored() ? parentWidget()->width() - pointer.x() : pointer.x();
    const auto place =
        isMainX ? TwipsFromPixels(across, logicalDpiX()) : TwipsFromPixels(pointer.y(), logicalDpiY());
    m_splitter.DragBy(place - m_splitter.BarPlace());
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) m_splitter.EndDrag();
}

bool SplitterBar::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_splitter.IsDragging()) {
        QCoreApplication::instance()->removeEventFilter(this);
    } else if (IsEscape(*event)) {
        event->accept();
        if (event->type() == QEvent::KeyPress) m_splitter.CancelDrag();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SplitterBar::hideEvent(QHideEvent* event)
{
    m_splitter.EndDrag();
    QWidget::hideEvent(event);
}

// ---- keyboard

bool SplitterBar::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && IsEscape(*event) && m_posBeforeKeys) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

// Where a key moves the bar to, in percent.
std::optional<int> SplitterBar::Target(const QKeyEvent& event) const
{
    const bool isMainX = m_splitter.Orientation() == 0;
    const bool isLarge = (event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
    const int step = isLarge ? kLargeStep : kSmallStep;
    const int towardsRight = IsMirrored() ? -step : step;
    const int position = m_splitter.SplitterPos();
    switch (event.key()) {
    case Qt::Key_Home: return m_splitter.SplitterPosMin();
    case Qt::Key_End: return m_splitter.SplitterPosMax();
    case Qt::Key_PageUp: return position - kLargeStep;
    case Qt::Key_PageDown: return position + kLargeStep;
    case Qt::Key_Left: return isMainX ? std::optional(position - towardsRight) : std::nullopt;
    case Qt::Key_Right: return isMainX ? std::optional(position + towardsRight) : std::nullopt;
    case Qt::Key_Up: return isMainX ? std::nullopt : std::optional(position - step);
    case Qt::Key_Down: return isMainX ? std::nullopt : std::optional(position + step);
    default: return std::nullopt;
    }
}

void SplitterBar::MoveTo(int percent)
{
    if (!m_splitter.Enabled() || m_splitter.IsDragging()) return;
    const int kept = std::clamp(percent, m_splitter.SplitterPosMin(), m_splitter.SplitterPosMax());
    const float before = m_splitter.ExactPos();
    if (static_cast<float>(kept) == before) return;
    if (!m_posBeforeKeys) m_posBeforeKeys = before;
    m_splitter.SetSplitterPos(kept);
}

bool SplitterBar::GiveBack()
{
    if (!m_posBeforeKeys) return false;
    m_splitter.RestorePos(*m_posBeforeKeys);
    KeepKeyMoves();
    return true;
}

void SplitterBar::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (const auto target = Target(*event)) {
        MoveTo(*target);
    } else if (isEnter && m_posBeforeKeys) {
        KeepKeyMoves();
    } else if (event->key() != Qt::Key_Escape || !GiveBack()) {
        event->ignore();
    }
}

void SplitterBar::focusInEvent(QFocusEvent*)
{
    KeepKeyMoves();
    update();
}

void SplitterBar::focusOutEvent(QFocusEvent*)
{
    KeepKeyMoves();
    update();
}
