#include "stats/CounterChartGrid.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kColumnsAtFirst = 3;
constexpr int kRowsAtFirst = 4;

}  // namespace

void CounterChartGrid::Add(CounterChart* chart)
{
    auto policy = sizePolicy();
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    chart->setParent(this);
    m_charts.push_back(chart);
    Arrange();
}

int CounterChartGrid::Gap() const
{
    return fontMetrics().height() / 2;
}

int CounterChartGrid::ColumnsIn(int width) const
{
    if (m_charts.empty()) return 1;
    const int chart = m_charts.front()->minimumSizeHint().width();
    return std::clamp((width - Gap()) / (chart + Gap()), 1, static_cast<int>(m_charts.size()));
}

int CounterChartGrid::RowsIn(int columns) const
{
    return (static_cast<int>(m_charts.size()) + columns - 1) / columns;
}

int CounterChartGrid::heightForWidth(int width) const
{
    if (m_charts.empty()) return 0;
    return Gap() + RowsIn(ColumnsIn(width)) * (m_charts.front()->minimumSizeHint().height() + Gap());
}

QSize CounterChartGrid::sizeHint() const
{
    if (m_charts.empty()) return {};
    const auto chart = m_charts.front()->minimumSizeHint();
    return {Gap() + kColumnsAtFirst * (chart.width() + Gap()),
            Gap() + kRowsAtFirst * (chart.height() + Gap())};
}

QSize CounterChartGrid::minimumSizeHint() const
{
    if (m_charts.empty()) return {};
    return {m_charts.front()->minimumSizeHint().width() + 2 * Gap(), 0};
}

void CounterChartGrid::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Arrange();
}

void CounterChartGrid::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::LayoutDirectionChange) return;
    updateGeometry();
    Arrange();
}

// The places lie next to one another without rounding errors that add up.
void CounterChartGrid::Arrange()
{
    const int columns = Columns();
    const int rows = std::max(RowsIn(columns), 1);
    const int gap = Gap();
    const auto edge = [gap](int index, int count, int room) { return gap + index * (room - gap) / count; };
    for (int i = 0; i < static_cast<int>(m_charts.size()); ++i) {
        const int column = i % columns, row = i / columns;
        const QRect place(
            QPoint(edge(column, columns, width()), edge(row, rows, height())),
            QPoint(edge(column + 1, columns, width()) - gap - 1, edge(row + 1, rows, height()) - gap - 1));
        m_charts[static_cast<std::size_t>(i)]->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), place));
    }
}
