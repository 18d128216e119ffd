#pragma once

#include "format/FormatLocale.h"

#include <string>

// A duration of so many 100-nanosecond ticks as hours, minutes, seconds and milliseconds: 1:02:03.004.
// Parts of a millisecond are cut. Hours do not become days; beyond 2147483646 they start again at 0.
std::string FormatTimeSpan(double ticks, const FormatLocale& locale);
