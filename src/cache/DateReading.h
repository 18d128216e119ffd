#pragma once

#include "base/DateTime.h"
#include "format/FormatLocale.h"

#include <optional>
#include <string_view>

// Reads a date as FormatDate writes it: in the user's date pattern, with or without a blank and a time of day
// behind it. Years of two digits are those from 1930 to 2029. A plain number is taken for days. Nothing for
// any other text and for days that no calendar has.
std::optional<DateTime> ReadDate(std::string_view text, const FormatLocale& locale);
