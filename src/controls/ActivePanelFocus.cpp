#include "controls/ActivePanel.h"

#include <QApplication>

// The window's own memory of its focus counts: a panel keeps its colours while another window is active.
bool ActivePanel::HoldsFocus() const
{
    const auto* const focused = window()->focusWidget();
    return focused != nullptr && (focused == this || isAncestorOf(focused));
}

void ActivePanel::FocusMoved(QWidget* now)
{
    if (!HoldsFocus()) return EndHighlight();
    Highlight();
    const bool isInside = now != nullptr && m_surface->isAncestorOf(now) && !m_header->isAncestorOf(now);
    if (isInside && QApplication::mouseButtons() == Qt::NoButton) ShowFocused(*now);
}

void ActivePanel::Highlight()
{
    if (m_savedBackColor || m_savedForeColor) return;
    m_savedBackColor = m_header->BackColor();
    m_savedForeColor = m_header->ForeColor();
    m_header->SetForeColor(OleColor::HighlightText);
    m_header->SetBackColor(OleColor::Highlight);
    m_header->SetBorderWidth(0);
}

void ActivePanel::EndHighlight()
{
    if (!m_savedBackColor && !m_savedForeColor) return;
    m_header->SetBorderWidth(1);
    if (m_savedBackColor) m_header->SetBackColor(*m_savedBackColor);
    if (m_savedForeColor) m_header->SetForeColor(*m_savedForeColor);
    m_savedBackColor.reset();
    m_savedForeColor.reset();
}

// Scrolls as far as it takes to see the control that the keyboard reached, its beginning above all.
void ActivePanel::ShowFocused(const QWidget& control)
{
    const QRect place(control.mapTo(m_bars->parentWidget(), QPoint()) - m_bars->pos(), control.size());
    const auto free = m_bars->FreeArea();
    const auto track = [](int low, int high, int freeLow, int freeHigh) {
        if (low < freeLow || high - low > freeHigh - freeLow) return low - freeLow;
        return std::max(0, high - freeHigh);
    };
    const int down = track(place.top(), place.bottom(), free.top(), free.bottom());
    int across = track(place.left(), place.right(), free.left(), free.right());
    if (isRightToLeft()) across = track(-place.right(), -place.left(), -free.right(), -free.left());
    const auto scroll = [this](ScrollAxis axis, double distance) {
        if (!m_bars->CanScroll(axis) || distance == 0) return;
        m_bars->Request(axis, ScrollCode::ThumbTrack, m_bars->Model(axis).bar.position + qRound(distance));
    };
    scroll(ScrollAxis::Vertical, m_scale.FromPixelsY(down));
    scroll(ScrollAxis::Horizontal, m_scale.FromPixelsX(across));
}

QWidget* ActivePanel::FirstFocusable() const
{
    const auto isCandidate = [this](const QWidget* one) {
        return (one->focusPolicy() & Qt::TabFocus) != 0 && one->isEnabled() && one->isVisibleTo(this) &&
               m_surface->isAncestorOf(one) && !m_header->isAncestorOf(one) && !m_bars->isAncestorOf(one);
    };
    for (auto* one = nextInFocusChain(); one && one != this; one = one->nextInFocusChain())
        if (isCandidate(one)) return one;
    return nullptr;
}

// A control that came late is reached after the panel's others, not after everything in the window.
void ActivePanel::JoinTabOrder(QWidget& control)
{
    const auto* const previous = control.previousInFocusChain();
    if (previous == this || isAncestorOf(previous)) return;
    QWidget* last = this;
    for (auto* one = nextInFocusChain(); isAncestorOf(one); one = one->nextInFocusChain())
        if (one->focusPolicy() != Qt::NoFocus) last = one;
    QWidget::setTabOrder(last, &control);
}

void ActivePanel::TakeFocus(Qt::FocusReason reason)
{
    if (HoldsFocus()) return;
    auto* const inner = FirstFocusable();
    (inner ? inner : static_cast<QWidget*>(this))->setFocus(reason);
}

// A panel with controls that take the focus is no stop of its own on the way through the window.
void ActivePanel::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    auto* const inner = FirstFocusable();
    if (!inner) return;
    switch (event->reason()) {
    case Qt::TabFocusReason: focusNextChild(); break;
    case Qt::BacktabFocusReason: focusPreviousChild(); break;
    case Qt::ShortcutFocusReason:
    case Qt::OtherFocusReason: inner->setFocus(event->reason()); break;
    default: break;
    }
}

bool ActivePanel::ScrollByKey(const QKeyEvent& event)
{
    const auto request = [this](ScrollAxis axis, int code) {
        if (!m_bars->CanScroll(axis)) return false;
        m_bars->Request(axis, code);
        return true;
    };
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier)) != 0) return false;
    const bool isMirrored = isRightToLeft();
    const int left = isMirrored ? ScrollCode::LineDown : ScrollCode::LineUp;
    const int right = isMirrored ? ScrollCode::LineUp : ScrollCode::LineDown;
    switch (event.key()) {
    case Qt::Key_PageUp: return request(ScrollAxis::Vertical, ScrollCode::PageUp);
    case Qt::Key_PageDown: return request(ScrollAxis::Vertical, ScrollCode::PageDown);
    case Qt::Key_Up: return request(ScrollAxis::Vertical, ScrollCode::LineUp);
    case Qt::Key_Down: return request(ScrollAxis::Vertical, ScrollCode::LineDown);
    case Qt::Key_Home: return request(ScrollAxis::Vertical, ScrollCode::Top);
    case Qt::Key_End: return request(ScrollAxis::Vertical, ScrollCode::Bottom);
    case Qt::Key_Left: return request(ScrollAxis::Horizontal, left);
    case Qt::Key_Right: return request(ScrollAxis::Horizontal, right);
    default: return false;
    }
}

// Keys also come from controls inside that have no use for them; only the panel's own are told.
void ActivePanel::keyPressEvent(QKeyEvent* event)
{
    const QPointer<ActivePanel> self(this);
    if (hasFocus()) {
        Q_EMIT KeyDown(event);
        if (!self.isNull() && !event->text().isEmpty()) Q_EMIT KeyPress(event->text());
    }
    if (self.isNull() || ScrollByKey(*event)) return;
    QWidget::keyPressEvent(event);
}

void ActivePanel::keyReleaseEvent(QKeyEvent* event)
{
    if (hasFocus()) Q_EMIT KeyUp(event);
    QWidget::keyReleaseEvent(event);
}
