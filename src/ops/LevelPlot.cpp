#include "ops/LevelPlot.h"

#include "format/FormatValue.h"
#include "ops/ReadableColors.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include <algorithm>
#include <utility>

namespace {

constexpr int kGridLines = 2;           // above the base line
constexpr double kLeastSeconds = 0.01;  // at the top of the scale, so that no noise is shown large
constexpr double kBarShare = 0.6;       // of the room that a level has
constexpr double kGap = 4;              // pixels

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

}  // namespace

LevelPlot::LevelPlot(FormatLocale locale, QWidget* parent) : QWidget(parent), m_locale(std::move(locale))
{
    setAccessibleName(tr("Size and time at each compression level"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void LevelPlot::Clear(int level)
{
    m_figures = {};
    m_level = level;
    Describe();
    updateGeometry();
    update();
}

void LevelPlot::ShowLevel(int level, const LevelFigures& figures)
{
    m_figures.at(static_cast<std::size_t>(level)) = figures;
    Describe();
    update();
}

QSize LevelPlot::sizeHint() const
{
    constexpr int kLines = 11;
    return {static_cast<int>(DrawLegend(nullptr)), kLines * fontMetrics().lineSpacing()};
}

bool LevelPlot::IsEmpty() const
{
    return std::none_of(m_figures.begin(), m_figures.end(),
                        [](const auto& each) { return each.has_value(); });
}

std::string LevelPlot::SizeText(double bytes) const
{
    return FormatValue(bytes, FormatKind::Large, m_locale);
}

std::string LevelPlot::SecondsText(double seconds) const
{
    return FormatValue(seconds, "0.000", m_locale);
}

void LevelPlot::Describe()
{
    QStringList lines;
    for (int level = kFirstLevel; level <= kLastLevel; ++level) {
        const auto& figures = m_figures.at(static_cast<std::size_t>(level));
        if (!figures) continue;
        const auto row = RowOfLevel(level, figures, m_locale);
        const auto line = level == m_level ? tr("Level %1, in use: size %2, processor time %3")
                                           : tr("Level %1: size %2, processor time %3");
        lines += line.arg(Text(row.level), Text(row.size), Text(row.time));
    }
    setAccessibleDescription(lines.join(u'\n'));
}

// ---- where things stand

QRectF LevelPlot::Scale::Slot(int level) const
{
    return {area.left() + (level - 1) * SlotWidth(), area.top(), SlotWidth(), area.height()};
}

double LevelPlot::Scale::Height(double value, double most) const
{
    return most > 0 ? area.height() * value / most : 0;
}

LevelPlot::Scale LevelPlot::FindScale() const
{
    Scale scale{{}, 0, kLeastSeconds};
    for (const auto& figures : m_figures) {
        if (!figures) continue;
        scale.mostBytes = std::max(scale.mostBytes, static_cast<double>(figures->OutputSize));
        scale.mostSeconds = std::max(scale.mostSeconds, SecondsOf(*figures));
    }
    // The half-way number may be the longer one: 1 MiB, 512 KiB.
    const auto metrics = fontMetrics();
    double left = 0, right = 0;
    for (int line = 1; line <= kGridLines; ++line) {
        const double share = static_cast<double>(line) / kGridLines;
        left = std::max<double>(left, metrics.horizontalAdvance(Text(SizeText(scale.mostBytes * share))));
        right =
            std::max<double>(right, metrics.horizontalAdvance(Text(SecondsText(scale.mostSeconds * share))));
    }
    const double line = metrics.lineSpacing();
    scale.area = QRectF(rect()).adjusted(left + 2 * kGap, 2 * line, -right - 2 * kGap, -2 * line - kGap);
    return scale;
}

// ---- painting

void LevelPlot::paintEvent(QPaintEvent*)
{
    if (IsEmpty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LeftToRight);  // scales go from left to right for everybody
    painter.fillRect(rect(), palette().brush(QPalette::Base));
    const auto scale = FindScale();
    if (scale.area.width() <= 0 || scale.area.height() <= 0) return;
    DrawAxes(painter, scale);
    DrawLevels(painter, scale);
    DrawSizes(painter, scale);
    DrawTimes(painter, scale);
    DrawLegend(&painter);
}

void LevelPlot::DrawAxes(QPainter& painter, const Scale& scale) const
{
    auto faint = palette().color(QPalette::Text);
    faint.setAlphaF(0.25F);
    const auto& area = scale.area;
    const double line = fontMetrics().lineSpacing();
    for (int each = 0; each <= kGridLines; ++each) {
        const double share = static_cast<double>(each) / kGridLines;
        const double y = area.bottom() - share * area.height();
        painter.setPen(each == 0 ? palette().color(QPalette::Text) : faint);
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        const QRectF left(0, y - line / 2, area.left() - kGap, line);
        const QRectF right(area.right() + kGap, y - line / 2, width() - area.right() - kGap, line);
        painter.setPen(SizeColor(palette()));
        painter.drawText(left, Qt::AlignRight | Qt::AlignVCenter, Text(SizeText(scale.mostBytes * share)));
        painter.setPen(TimeColor(palette()));
        const auto seconds = each == 0 ? std::string("0") : SecondsText(scale.mostSeconds * share);
        painter.drawText(right, Qt::AlignLeft | Qt::AlignVCenter, Text(seconds));
    }
}

void LevelPlot::DrawLevels(QPainter& painter, const Scale& scale) const
{
    const auto text = palette().color(QPalette::Text);
    const auto& area = scale.area;
    const double line = fontMetrics().lineSpacing();
    for (int level = kFirstLevel; level <= kLastLevel; ++level) {
        const bool isInUse = level == m_level;
        auto numberFont = font();
        numberFont.setBold(isInUse);
        painter.setFont(numberFont);
        painter.setPen(isInUse ? MarkedLevelColor(palette()) : text);
        const auto slot = scale.Slot(level);
        painter.drawText(QRectF(slot.left(), area.bottom() + kGap / 2, slot.width(), line), Qt::AlignCenter,
                         QString::number(level));
    }
    painter.setFont(font());
    painter.setPen(text);
    painter.drawText(QRectF(area.left(), area.bottom() + kGap / 2 + line, area.width(), line),
                     Qt::AlignCenter, tr("Compression level"));
}

void LevelPlot::DrawSizes(QPainter& painter, const Scale& scale) const
{
    for (int level = kFirstLevel; level <= kLastLevel; ++level) {
        const auto slot = scale.Slot(level);
        if (level == m_level) {
            auto band = MarkedLevelColor(palette());
            band.setAlphaF(0.15F);
            painter.fillRect(slot, band);
        }
        const auto& figures = m_figures.at(static_cast<std::size_t>(level));
        if (!figures) continue;
        const double height = scale.Height(figures->OutputSize, scale.mostBytes);
        const double barWidth = slot.width() * kBarShare;
        painter.fillRect(QRectF(slot.center().x() - barWidth / 2, slot.bottom() - height, barWidth, height),
                         SizeColor(palette()));
    }
}

void LevelPlot::DrawTimes(QPainter& painter, const Scale& scale) const
{
    constexpr double kThickness = 2, kDot = 3.5;
    QPainterPath path;
    QPainterPath dots;
    bool isJoined = false;  // to the level before
    for (int level = kFirstLevel; level <= kLastLevel; ++level) {
        const auto& figures = m_figures.at(static_cast<std::size_t>(level));
        if (figures) {
            const auto slot = scale.Slot(level);
            const QPointF place(slot.center().x(),
                                slot.bottom() - scale.Height(SecondsOf(*figures), scale.mostSeconds));
            if (isJoined)
                path.lineTo(place);
            else
                path.moveTo(place);
            dots.addEllipse(place, kDot, kDot);
        }
        isJoined = figures.has_value();
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(TimeColor(palette()), kThickness));
    painter.drawPath(path);
    painter.setPen(QPen(palette().color(QPalette::Base), 1));
    painter.setBrush(TimeColor(palette()));
    painter.drawPath(dots);
}

std::vector<LevelPlot::LegendEntry> LevelPlot::Legend() const
{
    std::vector<LegendEntry> legend{{SizeColor(palette()), tr("Size")},
                                    {TimeColor(palette()), tr("CPU time (seconds)")}};
    if (m_level >= kFirstLevel && m_level <= kLastLevel)
        legend.push_back({MarkedLevelColor(palette()), tr("Level in use")});
    return legend;
}

// Draws the legend and answers where it ends; without a painter, only answers.
double LevelPlot::DrawLegend(QPainter* painter) const
{
    const double line = fontMetrics().lineSpacing();
    const double mark = line / 2;
    double x = 2 * kGap;
    for (const auto& entry : Legend()) {
        const double textStart = x + mark + kGap;
        const double textWidth = fontMetrics().horizontalAdvance(entry.text) + 1;
        if (painter != nullptr) {
            painter->fillRect(QRectF(x, kGap + mark / 2, mark, mark), entry.color);
            painter->setPen(palette().color(QPalette::Text));
            painter->drawText(QRectF(textStart, kGap, textWidth, line), Qt::AlignLeft | Qt::AlignVCenter,
                              entry.text);
        }
        x = textStart + textWidth + 3 * kGap;
    }
    return x;
}
