#pragma once

#include "format/FormatLocale.h"
#include "stats/CounterChartScale.h"
#include "stats/CounterFeed.h"
#include "stats/CounterHistory.h"

#include <QPolygonF>
#include <QWidget>

#include <cstdint>
#include <optional>
#include <vector>

// The history of one counter as a line over the last ten minutes, under its name and its value now. The mouse
// pointer, or the keys Left, Right, Home and End, read single samples. Time runs from left to right in every
// language.
class CounterChart : public QWidget {
    Q_OBJECT

public:
    // `history` must outlive the last event that this gets; `counter` is the index in it.
    CounterChart(const CounterHistory& history, std::size_t counter, FormatLocale locale,
                 QWidget* parent = nullptr);

    void Describe(const CounterDescription& description);
    void Refresh();  // the history has changed

    const QString& Label() const { return m_label; }
    QString ValueText() const;   // as the performance summary has it; "---" where there is none
    QString CursorText() const;  // time and value of the sample that is read; empty when none is
    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Places {
        QRect header, times, summary;
        QRectF plot;
    };
    Places Lay() const;
    QString Text(double value) const;
    QString ClockText(std::int64_t utc) const;
    QString RangeText(int width) const;
    void ReadAt(double x);
    void StopPointing();
    void SetCursor(std::optional<std::int64_t> tick);
    const CounterSample* Read() const;
    void TellValue();
    QFont SmallFont() const;
    QColor LineColor() const;

    QPointF PointOf(const CounterSample& sample, const QRectF& plot) const;
    void Rebuild(const QRectF& plot);
    void PaintHeader(QPainter& painter, const Places& places) const;
    void PaintGrid(QPainter& painter, const QRectF& plot) const;
    void PaintLines(QPainter& painter, const QRectF& plot) const;
    void PaintScale(QPainter& painter, const QRectF& plot) const;
    void PaintFooter(QPainter& painter, const Places& places) const;
    void PaintCursor(QPainter& painter, const QRectF& plot) const;

    const CounterHistory& m_history;
    const std::size_t m_counter;
    const FormatLocale m_locale;
    QString m_label;
    std::uint32_t m_type = PdhType::RawCount;

    bool m_isStale = true;  // what follows, to be made anew before it is painted
    std::optional<CounterRange> m_range;
    ChartScale m_scale;
    std::vector<QPolygonF> m_lines;  // without the gaps, the oldest first

    std::optional<std::int64_t> m_cursor;  // tick of the sample that is read
    std::optional<double> m_pointer;       // x of the mouse pointer while it reads
};
