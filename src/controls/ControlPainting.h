#pragma once

#include "controls/EdgeShades.h"
#include "controls/HeaderLayout.h"

#include <QPainter>
#include <QPixmap>

// Draws a border of `width` pixels just inside the area, in the palette's colours.
void DrawEdge(QPainter& painter, const QRect& area, EdgeStyle style, int width, const QPalette& palette);

// Draws the part of the image that its spans name, in pixels without regard to the screen's scale; origin is
// where its room begins.
void DrawImagePart(QPainter& painter, const QPixmap& image, QPointF origin, const ImageSpan& across,
                   const ImageSpan& down);

// The image in the middle of the area, as much of it as there is room for.
void DrawCentred(QPainter& painter, const QPixmap& image, const QRect& area);
