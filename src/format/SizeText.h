#pragma once

#include "format/FormatLocale.h"

#include <string>
#include <string_view>

// A byte count as a person reads it: 1000, 0.98 KiB, 1 MiB. A unit is left for the next one above 1000, and
// each is 1024 of the one before; the last one, EiB, takes whatever remains. A whole number has no decimals,
// any other two. Negative sizes are never scaled.
std::string FormatSize(double bytes, const FormatLocale& locale);

// The bytes that a text of FormatSize stands for, as near as its decimals tell; 0 for any other text.
double ParseSizeText(std::string_view text, const FormatLocale& locale);
