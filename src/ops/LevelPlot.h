#pragma once

#include "ops/AnalyzeLevel.h"

#include <QColor>
#include <QWidget>

#include <vector>

class QPainter;

// Draws size and time over the compression levels: a bar for each size, a line for the times. The level
// that the service used stands out. Draws nothing while there are no figures.
class LevelPlot : public QWidget {
    Q_OBJECT

public:
    explicit LevelPlot(FormatLocale locale, QWidget* parent = nullptr);

    void Clear(int level);  // the level in use; none of 1 to 9: no level stands out
    void ShowLevel(int level, const LevelFigures& figures);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Where things stand: the area of the bars, and what reaches to its top.
    struct Scale {
        QRectF area;
        double mostBytes;
        double mostSeconds;

        double SlotWidth() const { return area.width() / kLastLevel; }
        QRectF Slot(int level) const;
        double Height(double value, double most) const;
    };

    struct LegendEntry {
        QColor color;
        QString text;
    };

    bool IsEmpty() const;
    Scale FindScale() const;
    std::string SizeText(double bytes) const;
    std::string SecondsText(double seconds) const;
    void DrawAxes(QPainter& painter, const Scale& scale) const;
    void DrawLevels(QPainter& painter, const Scale& scale) const;
    void DrawSizes(QPainter& painter, const Scale& scale) const;
    void DrawTimes(QPainter& painter, const Scale& scale) const;
    std::vector<LegendEntry> Legend() const;
    double DrawLegend(QPainter* painter) const;
    void Describe();

    const FormatLocale m_locale;
    FiguresByLevel m_figures;
    int m_level = 0;
};
