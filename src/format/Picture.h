#pragma once

#include "format/DecimalText.h"
#include "format/FormatLocale.h"

#include <string>
#include <string_view>

// Writes a number as a picture shows it:
//   0      a digit, 0 where the number has none      #      a digit, nothing where the number has none
//   .      the user's decimal separator              ,      nothing: digits are never grouped
//   %      "%"; each multiplies the number by 100    "..."  the text between the quotes
//   \x     the character x                           other characters, also ":" and a second ".": themselves
// The number is rounded half away from zero to as many decimals as the picture has places for. Its integer
// part is never cut: the first place takes all digits that are too many. A minus comes first, unless all
// digits are 0. The separator falls away with the last of its optional digits ("0.##" gives 45), but stays
// when the picture asks for no digit behind it ("00." gives 45.).
// A picture without a place for a digit, like an infinite or undefined number, gives the plain text.
std::string FormatPicture(DecimalText number, std::string_view picture, const FormatLocale& locale);
