#include "controls/PlainLabel.h"

#include "controls/PlainText.h"
#include "controls/ReadingOrder.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

constexpr int kMostCharacters = 48;  // that the label asks room for
constexpr int kLeastCharacters = 4;

}  // namespace

PlainLabel::PlainLabel(const QString& objectName, QString meaning, QWidget* parent)
    : QLabel(parent),
      m_meaning(std::move(meaning))
{
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
    setAccessibleName(m_meaning);
}

void PlainLabel::ShowText(std::string_view text)
{
    setText(PlainText(text));
    setAccessibleName(m_meaning + QStringLiteral(": ") + this->text().trimmed());
}

void PlainLabel::ShowIcon(const QIcon& icon)
{
    m_icon = icon;
    updateGeometry();
    update();
}

int PlainLabel::IconExtent() const
{
    return m_icon.isNull() ? 0 : style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
}

int PlainLabel::WidthBesideText() const
{
    const auto margins = contentsMargins();
    return margins.left() + margins.right() + 2 * margin() + IconExtent();
}

QSize PlainLabel::sizeHint() const
{
    const auto metrics = fontMetrics();
    const int textWidth =
        std::min(metrics.horizontalAdvance(text()) + 1, kMostCharacters * metrics.averageCharWidth());
    const auto margins = contentsMargins();
    const int height = std::max(metrics.height(), IconExtent());
    return {WidthBesideText() + textWidth, height + margins.top() + margins.bottom() + 2 * margin()};
}

QSize PlainLabel::minimumSizeHint() const
{
    const auto wanted = sizeHint();
    const int least = WidthBesideText() + kLeastCharacters * fontMetrics().averageCharWidth();
    return {std::min(wanted.width(), least), wanted.height()};
}

void PlainLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawFrame(&painter);
    auto room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    if (const int icon = IconExtent(); icon != 0) {
        const QRect place(room.left(), room.top() + (room.height() - icon) / 2, icon, icon);
        m_icon.paint(&painter, QStyle::visualRect(layoutDirection(), room, place));
        room = QStyle::visualRect(layoutDirection(), room, room.adjusted(icon, 0, 0, 0));
    }
    // Blanks in front are a gap, on whichever side the text begins.
    const auto words = text().trimmed();
    const int gap = fontMetrics().horizontalAdvance(text().left(text().indexOf(words)));
    room = QStyle::visualRect(layoutDirection(), room, room.adjusted(gap, 0, 0, 0));
    const auto shown = fontMetrics().elidedText(words, Qt::ElideMiddle, room.width());
    const auto place = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
    painter.setLayoutDirection(ReadingOrder(shown, layoutDirection()));
    style()->drawItemText(&painter, room, static_cast<int>(place | Qt::AlignAbsolute) | Qt::TextSingleLine,
                          palette(), isEnabled(), shown, foregroundRole());
}
