#pragma once

#include "controls/OleColors.h"

#include <QColor>
#include <QPalette>

#include <cstdint>

// An OLE colour value as it is shown with a palette: with the top bit set, the low byte is the index of a
// system colour and follows the palette; without it the low three bytes are red, green and blue, red lowest.
// An index that no system colour has is shown as button face.
QColor SystemColor(std::uint32_t oleColor, const QPalette& palette);
