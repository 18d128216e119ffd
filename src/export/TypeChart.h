#pragma once

#include "export/ReportChart.h"

#include <QFont>
#include <QImage>
#include <QPalette>

inline bool IsDarkBase(const QPalette& palette)
{
    constexpr int kMiddle = 128;
    return palette.color(QPalette::Base).lightness() < kMiddle;
}

// The chart of the file types as a picture that is `scale` times as large as its measures, in the colours of
// the palette, without a background.
QImage DrawTypeChart(const std::vector<ReportChart::Bar>& bars, const QPalette& palette, const QFont& font,
                     double scale);
