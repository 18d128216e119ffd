#pragma once

#include <QString>

#include <algorithm>

// The direction in which a text runs in a window of the given direction: its own from right to left only
// when it has letters that do. A bare "6.11 KiB" or "Found: 3 Files" stays as it is written.
inline Qt::LayoutDirection ReadingOrder(const QString& text, Qt::LayoutDirection window)
{
    if (window != Qt::RightToLeft) return window;
    const auto letters = text.toUcs4();
    const bool hasOwn = std::any_of(letters.begin(), letters.end(), [](char32_t letter) {
        const auto direction = QChar::direction(letter);
        return direction == QChar::DirR || direction == QChar::DirAL;
    });
    return hasOwn ? Qt::RightToLeft : Qt::LeftToRight;
}

// The same text for a place that draws everything in the window's direction: marked, when it needs it, so
// that it runs in its own.
inline QString InReadingOrder(const QString& text, Qt::LayoutDirection window)
{
    constexpr QChar kIsolate(0x2066), kEnd(0x2069);
    return ReadingOrder(text, window) == window || text.isEmpty() ? text : kIsolate + text + kEnd;
}
