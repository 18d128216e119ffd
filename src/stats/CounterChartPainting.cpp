#include "stats/CounterChart.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// In characters or lines of text:
constexpr int kWidth = 36;
constexpr int kPlotLines = 5;
constexpr int kTextLines = 3;  // the header and two of the footer

constexpr double kSmall = 0.88;  // of the window's font
constexpr double kLineWidth = 1.5;
constexpr double kDot = 3;                                  // radius
constexpr int kFaint = 34, kGridShade = 40, kDimmed = 190;  // opacities
constexpr int kTimeParts = 4;                               // of the time axis

QColor Shade(QColor color, int opacity)
{
    color.setAlpha(opacity);
    return color;
}

}  // namespace

QSize CounterChart::minimumSizeHint() const
{
    const auto metrics = fontMetrics();
    return {kWidth * metrics.averageCharWidth(), (kPlotLines + kTextLines + 2) * metrics.height()};
}

CounterChart::Places CounterChart::Lay() const
{
    const int line = fontMetrics().height();
    const int small = QFontMetrics(SmallFont()).height();
    const auto room = rect().adjusted(line / 2, line / 3, -line / 2, -line / 3);
    Places places;
    places.header = QRect(room.left(), room.top(), room.width(), line);
    places.summary = QRect(room.left(), room.bottom() - small + 1, room.width(), small);
    places.times = places.summary.translated(0, -small);
    const QRect plot(QPoint(room.left(), places.header.bottom() + line / 3),
                     QPoint(room.right(), places.times.top() - line / 6));
    places.plot = QRectF(plot).adjusted(0.5, 0.5, -0.5, -0.5);
    return places;
}

QFont CounterChart::SmallFont() const
{
    auto smaller = font();
    if (smaller.pointSizeF() > 0) {
        smaller.setPointSizeF(smaller.pointSizeF() * kSmall);
    } else {
        smaller.setPixelSize(static_cast<int>(smaller.pixelSize() * kSmall));
    }
    return smaller;
}

// The highlight, so far towards the text that it stands out from the background in every palette.
QColor CounterChart::LineColor() const
{
    const auto line = palette().color(QPalette::Highlight);
    const auto base = palette().color(QPalette::Base);
    const auto text = palette().color(QPalette::Text);
    if (std::abs(line.lightness() - base.lightness()) >= 80) return line;
    return QColor((line.red() + text.red()) / 2, (line.green() + text.green()) / 2,
                  (line.blue() + text.blue()) / 2);
}

// ---- the lines

QPointF CounterChart::PointOf(const CounterSample& sample, const QRectF& plot) const
{
    const auto age = static_cast<double>(m_history.Samples().back().time.tick - sample.time.tick);
    const double share = (sample.values[m_counter] - m_scale.low) / (m_scale.high - m_scale.low);
    return {plot.right() - plot.width() * age / static_cast<double>(CounterHistory::kSpan),
            plot.bottom() - plot.height() * share};
}

void CounterChart::Rebuild(const QRectF& plot)
{
    if (!std::exchange(m_isStale, false)) return;
    m_lines.clear();
    m_range = m_history.Range(m_counter);
    if (!m_range) return;
    m_scale = ScaleFor(m_range->least, m_range->most, m_type);
    bool isInGap = true;
    for (const auto& sample : m_history.Samples()) {
        const bool isGap = std::isnan(sample.values[m_counter]);
        if (!isGap && (isInGap || sample.isAfterBreak)) m_lines.emplace_back();
        if (!isGap) m_lines.back().append(PointOf(sample, plot));
        isInGap = isGap;
    }
}

// ---- painting

void CounterChart::paintEvent(QPaintEvent*)
{
    const auto places = Lay();
    Rebuild(places.plot);
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LeftToRight);  // as time and numbers run
    painter.fillRect(rect(), palette().color(QPalette::Base));
    const bool isFocused = hasFocus();
    painter.setPen(QPen(palette().color(isFocused ? QPalette::Highlight : QPalette::Mid), isFocused ? 2 : 1));
    const double inset = isFocused ? 1 : 0.5;
    painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
    PaintHeader(painter, places);
    PaintGrid(painter, places.plot);
    PaintLines(painter, places.plot);
    PaintScale(painter, places.plot);
    PaintCursor(painter, places.plot);
    PaintFooter(painter, places);
}

void CounterChart::PaintHeader(QPainter& painter, const Places& places) const
{
    const auto value = ValueText();
    auto bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int valueWidth = std::min(metrics.horizontalAdvance(value), places.header.width());
    const int nameWidth = std::max(places.header.width() - valueWidth - metrics.height() / 2, 0);
    const auto nameRoom =
        QStyle::visualRect(layoutDirection(), places.header,
                           QRect(places.header.topLeft(), QSize(nameWidth, places.header.height())));
    const auto start = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter;
    const auto end = QStyle::visualAlignment(layoutDirection(), Qt::AlignRight) | Qt::AlignVCenter;
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(bold);
    painter.drawText(places.header, static_cast<int>(end) | Qt::TextSingleLine,
                     metrics.elidedText(value, Qt::ElideRight, places.header.width()));
    painter.setFont(font());
    painter.setLayoutDirection(layoutDirection());
    painter.drawText(nameRoom, static_cast<int>(start) | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_label, Qt::ElideRight, nameWidth));
    painter.setLayoutDirection(Qt::LeftToRight);
}

void CounterChart::PaintGrid(QPainter& painter, const QRectF& plot) const
{
    painter.setPen(QPen(Shade(palette().color(QPalette::Text), kGridShade), 1));
    painter.drawRect(plot);
    for (int part = 1; part < kTimeParts; ++part) {
        const double x = std::round(plot.left() + plot.width() * part / kTimeParts) + 0.5;
        painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
    }
    if (!m_range) return;
    const auto steps = std::lround((m_scale.high - m_scale.low) / m_scale.step);
    for (long step = 1; step < steps; ++step) {
        const double share = static_cast<double>(step) / static_cast<double>(steps);
        const double y = std::round(plot.bottom() - plot.height() * share) + 0.5;
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    }
}

void CounterChart::PaintLines(QPainter& painter, const QRectF& plot) const
{
    const auto color = LineColor();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& line : m_lines) {
        auto area = line;
        area << QPointF(line.back().x(), plot.bottom()) << QPointF(line.front().x(), plot.bottom());
        painter.setPen(Qt::NoPen);
        painter.setBrush(Shade(color, kFaint));
        painter.drawPolygon(area);
        if (line.size() == 1) {
            painter.setBrush(color);
            painter.drawEllipse(line.front(), kLineWidth, kLineWidth);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(color, kLineWidth, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
        painter.drawPolyline(line);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void CounterChart::PaintScale(QPainter& painter, const QRectF& plot) const
{
    if (!m_range) return;
    painter.setFont(SmallFont());
    const QFontMetrics metrics(painter.font());
    for (const bool isHigh : {true, false}) {
        const auto label = ScaleLabel(isHigh ? m_scale.high : m_scale.low, m_scale, m_type, m_locale);
        const auto text = QString::fromStdString(label);
        QRect place(plot.topLeft().toPoint() + QPoint(2, 1),
                    QSize(metrics.horizontalAdvance(text) + 2, metrics.height()));
        if (!isHigh) place.moveBottom(static_cast<int>(plot.bottom()) - 1);
        painter.fillRect(place, palette().color(QPalette::Base));
        painter.setPen(Shade(palette().color(QPalette::Text), kDimmed));
        painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, text);
    }
}

QString CounterChart::RangeText(int width) const
{
    if (!m_range) return tr("No values yet");
    const auto least = Text(m_range->least), most = Text(m_range->most);
    const auto inFull = tr("Min %1   Avg %2   Max %3").arg(least, Text(m_range->average), most);
    const bool fits = QFontMetrics(SmallFont()).horizontalAdvance(inFull) <= width;
    return fits ? inFull : tr("Min %1   Max %2").arg(least, most);
}

void CounterChart::PaintFooter(QPainter& painter, const Places& places) const
{
    painter.setFont(SmallFont());
    painter.setPen(Shade(palette().color(QPalette::Text), kDimmed));
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine;
    const auto end = m_history.IsEmpty() ? 0 : m_history.Samples().back().time.utc;
    painter.drawText(places.times, Qt::AlignLeft | flags, ClockText(end - CounterHistory::kSpan));
    painter.drawText(places.times, Qt::AlignHCenter | flags, ClockText(end - CounterHistory::kSpan / 2));
    painter.drawText(places.times, Qt::AlignRight | flags, ClockText(end));
    painter.setLayoutDirection(layoutDirection());
    const int width = places.summary.width();
    const auto text = QFontMetrics(painter.font()).elidedText(RangeText(width), Qt::ElideRight, width);
    const auto start = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.drawText(places.summary, static_cast<int>(start) | flags, text);
}

// A line through the sample, and what it says beside it on the side that has more room.
void CounterChart::PaintCursor(QPainter& painter, const QRectF& plot) const
{
    const auto* const sample = Read();
    if (sample == nullptr) return;
    const bool isGap = std::isnan(sample->values[m_counter]);
    const auto at = PointOf(*sample, plot);
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DashLine));
    painter.drawLine(QPointF(at.x(), plot.top()), QPointF(at.x(), plot.bottom()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Text));
    if (!isGap) painter.drawEllipse(at, kDot, kDot);

    painter.setFont(SmallFont());
    const QFontMetrics metrics(painter.font());
    const auto text = CursorText();
    QRectF box(0, 0, metrics.horizontalAdvance(text) + 0.5 * metrics.height(), metrics.height() + 2);
    const bool isRight = at.x() < plot.center().x();
    box.moveTopLeft({isRight ? at.x() + 2 * kDot : at.x() - 2 * kDot - box.width(), plot.top() + 2});
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawRect(box);
    painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, text);
}
