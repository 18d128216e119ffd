#include "stats/ValueBox.h"

#include "controls/PlainMarkup.h"
#include "controls/PlainText.h"
#include "controls/ReadingOrder.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>

namespace {

constexpr int kInnerMargin = 2;  // of line edits, left and right of the text

}  // namespace

ValueBox::ValueBox(const QString& objectName, const QString& meaning, QWidget* parent) : QLineEdit(parent)
{
    setObjectName(objectName);
    setAccessibleName(meaning);
    setReadOnly(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    AlignWithWindow();
}

// A text from left to right would stand at the left of the box in every window.
void ValueBox::AlignWithWindow()
{
    setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute |
                 Qt::AlignVCenter);
}

void ValueBox::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) AlignWithWindow();
}

// Text that was marked as a whole, as after a Tab, stays marked.
void ValueBox::ShowText(std::string_view text)
{
    const auto plain = PlainText(text);
    if (plain == this->text()) return;
    const bool wasMarked = hasSelectedText() && selectedText() == this->text();
    setText(plain);
    setCursorPosition(0);
    if (wasMarked) selectAll();
}

QRect ValueBox::TextRoom() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    const auto inner = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
    return inner.adjusted(kInnerMargin, 0, -kInnerMargin, 0);
}

bool ValueBox::IsTooLong() const
{
    return fontMetrics().horizontalAdvance(text()) > TextRoom().width();
}

bool ValueBox::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !IsTooLong())
        return QLineEdit::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainMarkup(text()), this);
    return true;
}

void ValueBox::paintEvent(QPaintEvent* event)
{
    if (hasFocus() || !IsTooLong()) return QLineEdit::paintEvent(event);
    QPainter painter(this);
    QStyleOptionFrame option;
    initStyleOption(&option);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    const auto room = TextRoom();
    const auto shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
    painter.setLayoutDirection(ReadingOrder(shown, layoutDirection()));
    style()->drawItemText(&painter, room, static_cast<int>(alignment()) | Qt::TextSingleLine, palette(),
                          isEnabled(), shown, QPalette::Text);
}

void ValueBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) return event->ignore();
    QLineEdit::mousePressEvent(event);
}
