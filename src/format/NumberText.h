#pragma once

#include "format/DecimalText.h"
#include "format/FormatLocale.h"

#include <optional>
#include <string>
#include <string_view>

// The number with all its digits and no separator when it is whole. Never an exponent.
std::string PlainText(const DecimalText& number, const FormatLocale& locale);

// The number in the format "Fixed" (two decimals: 1.13), in "Percent" (a fraction: 0.4567 gives 45.67%), or
// else in the format taken as a picture; see FormatPicture.
std::string FormatNumber(const DecimalText& number, std::string_view format, const FormatLocale& locale);

// Reads a decimal number with the user's decimal separator; a sign, an exponent and blanks around it are
// allowed. Nothing when the text is anything else or out of the range of a double.
std::optional<double> ParseNumber(std::string_view text, const FormatLocale& locale);
