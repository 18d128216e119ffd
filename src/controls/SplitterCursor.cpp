#include "controls/SplitterCursor.h"

#include "controls/Images.h"

namespace {

constexpr QSize kSize(32, 32);  // in device independent pixels; the hot spot is its middle

}  // namespace

QCursor SplitterCursor(int style, int orientation, qreal devicePixelRatio)
{
    const bool isWestEast = orientation == 0;
    if (style == 0) return isWestEast ? Qt::SizeHorCursor : Qt::SizeVerCursor;
    const auto picture = Image(isWestEast ? QStringLiteral("imgWE") : QStringLiteral("imgNS"));
    return QCursor(picture.pixmap(kSize, devicePixelRatio));
}
