#include "export/ExportPicture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 14;  // in average characters

void DrawReport(QPainter& painter, const QRectF& place)
{
    painter.drawRoundedRect(place, 3, 3);
    const double step = place.height() / 5;
    for (int line = 1; line < 5; ++line) {
        const double right = line == 4 ? place.center().x() : place.right() - step;
        const double y = place.top() + line * step;
        painter.drawLine(QPointF(place.left() + step, y), QPointF(right, y));
    }
}

void DrawArrow(QPainter& painter, QPointF from, QPointF to, double head)
{
    painter.drawLine(from, to);
    painter.drawLine(to, to + QPointF(-head, -head));
    painter.drawLine(to, to + QPointF(head, -head));
}

void DrawDatabase(QPainter& painter, const QRectF& place)
{
    const double lid = place.height() / 4;
    const QRectF top(place.left(), place.top(), place.width(), lid);
    painter.drawEllipse(top);
    painter.drawLine(QPointF(place.left(), top.center().y()),
                     QPointF(place.left(), place.bottom() - lid / 2));
    painter.drawLine(QPointF(place.right(), top.center().y()),
                     QPointF(place.right(), place.bottom() - lid / 2));
    constexpr int kHalf = 180 * 16;
    for (const double down : {0.25, 0.5, 0.75})
        painter.drawArc(top.translated(0, place.height() * down), kHalf, kHalf);
}

}  // namespace

ExportPicture::ExportPicture(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("Picture1"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize ExportPicture::sizeHint() const
{
    const int width = kWidth * fontMetrics().averageCharWidth();
    return {width, 2 * width};
}

void ExportPicture::paintEvent(QPaintEvent*)
{
    const auto highlight = palette().color(QPalette::Active, QPalette::Highlight);
    QLinearGradient shade(0, 0, 0, height());
    shade.setColorAt(0, highlight);
    shade.setColorAt(1, highlight.darker(180));
    QPainter painter(this);
    painter.fillRect(rect(), shade);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = width() / 10.0;
    painter.setPen(QPen(palette().color(QPalette::Active, QPalette::HighlightedText), unit / 4, Qt::SolidLine,
                        Qt::RoundCap));
    const double middle = width() / 2.0;
    DrawReport(painter, {middle - 2 * unit, 1.5 * unit, 4 * unit, 5 * unit});
    DrawArrow(painter, {middle, 7.5 * unit}, {middle, 10.5 * unit}, unit);
    DrawDatabase(painter, {middle - 2.5 * unit, 11.5 * unit, 5 * unit, 6 * unit});
}

QLayout* EtchedLine(QWidget* parent)
{
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(0);
    int index = 0;
    for (const auto role : {QPalette::Dark, QPalette::Light}) {
        auto* const line = new QWidget(parent);
        line->setObjectName(QStringLiteral("Line1(%1)").arg(index++));
        line->setFixedHeight(1);
        line->setAutoFillBackground(true);
        line->setBackgroundRole(role);
        lines->addWidget(line);
    }
    return lines;
}
