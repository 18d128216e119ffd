#include "controls/ControlPainting.h"

#include "controls/SystemColors.h"

#include <algorithm>

void DrawEdge(QPainter& painter, const QRect& area, EdgeStyle style, int width, const QPalette& palette)
{
    const int rings = std::min(width, (std::min(area.width(), area.height()) + 1) / 2);
    for (int ring = 0; ring < rings; ++ring) {
        const auto shade = EdgeColors(style, ring, width);
        const auto line = area.adjusted(ring, ring, -ring, -ring);
        const auto leftTop = SystemColor(shade.leftTop, palette);
        const auto rightBottom = SystemColor(shade.rightBottom, palette);
        painter.fillRect(line.left(), line.top(), line.width(), 1, leftTop);
        painter.fillRect(line.left(), line.top(), 1, line.height(), leftTop);
        painter.fillRect(line.left(), line.bottom(), line.width(), 1, rightBottom);
        painter.fillRect(line.right(), line.top(), 1, line.height(), rightBottom);
    }
}

void DrawImagePart(QPainter& painter, const QPixmap& image, QPointF origin, const ImageSpan& across,
                   const ImageSpan& down)
{
    const double ratio = image.devicePixelRatio();
    const QRectF target(origin.x() + across.place, origin.y() + down.place, across.length, down.length);
    const QRectF source(across.source * ratio, down.source * ratio, across.length * ratio,
                        down.length * ratio);
    painter.drawPixmap(target, image, source);
}

void DrawCentred(QPainter& painter, const QPixmap& image, const QRect& area)
{
    const auto size = image.deviceIndependentSize().toSize();
    if (image.isNull() || area.isEmpty()) return;
    DrawImagePart(painter, image, area.topLeft(), PlaceImage(area.width(), size.width(), true),
                  PlaceImage(area.height(), size.height(), true));
}
