#pragma once

#include <QColor>
#include <QPalette>

// The colours of the level list and its plot: each has a lighter form for a dark background.
inline bool IsDark(const QPalette& palette)
{
    constexpr int kMiddle = 128;
    return palette.color(QPalette::Base).lightness() < kMiddle;
}

inline QColor MarkedLevelColor(const QPalette& palette)
{
    return IsDark(palette) ? QColor(140, 170, 255) : QColor(0, 0, 192);
}

inline QColor SizeColor(const QPalette& palette)
{
    return IsDark(palette) ? QColor(110, 165, 235) : QColor(80, 130, 200);
}

inline QColor TimeColor(const QPalette& palette)
{
    return IsDark(palette) ? QColor(255, 170, 90) : QColor(190, 75, 0);
}
