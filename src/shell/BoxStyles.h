#pragma once

#include "contracts/MessageBoxes.h"

// Whether a box of this style has the buttons Yes and No; others have an OK button alone.
constexpr bool Asks(BoxStyle style)
{
    constexpr unsigned kButtonBits = 0x0F;
    return (static_cast<unsigned>(style) & kButtonBits) == static_cast<unsigned>(BoxStyle::YesNo);
}
