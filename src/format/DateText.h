#pragma once

#include "base/DateTime.h"
#include "format/FormatLocale.h"

#include <string>

// Dates as the user writes them. A value that no calendar holds (NaN, infinity, more than 10^11 days away)
// shows as its plain number of days.

// In the user's date pattern, with English names; a pattern with a conversion that is not known here gives
// the ISO form 1999-12-31.
std::string FormatShortDate(DateTime value, const FormatLocale& locale);

// 24 hours and minutes, two digits each, with the user's time separator. Seconds are cut.
std::string FormatShortTime(DateTime value, const FormatLocale& locale);

// Date, blank, time; empty for the empty date.
std::string FormatDate(DateTime value, const FormatLocale& locale);
