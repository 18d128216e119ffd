#pragma once

#include <QFont>
#include <QImage>
#include <QWidget>

// What is written in a part of a widget, without the empty space around it; null when nothing is. The letters
// stand on whole pixels, so that the same text gives the same picture wherever it stands.
inline QImage Ink(QWidget& widget, const QRect& part)
{
    auto font = widget.font();
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::NoAntialias);
    widget.setFont(font);
    const auto picture = widget.grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    const auto paper = picture.pixel(picture.rect().center().x(), 0);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != paper) ink |= QRect(x, y, 1, 1);
    return ink.isNull() ? QImage() : picture.copy(ink);
}
