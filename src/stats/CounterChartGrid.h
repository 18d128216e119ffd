#pragma once

#include "stats/CounterChart.h"

#include <vector>

// Charts side by side, in as many columns as the width has room for and in rows that share the height.
class CounterChartGrid : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void Add(CounterChart* chart);  // which becomes a child of this
    const std::vector<CounterChart*>& Charts() const { return m_charts; }

    int Columns() const { return ColumnsIn(width()); }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int Gap() const;
    int ColumnsIn(int width) const;
    int RowsIn(int columns) const;
    void Arrange();

    std::vector<CounterChart*> m_charts;
};
