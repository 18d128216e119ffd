#pragma once

#include "format/FormatLocale.h"

#include <cstdint>
#include <string>

// The value axis of a counter's chart: from low to high in steps of 1, 2 or 5 of a power of ten; in sizes of
// the unit of bytes that all its places are told in. All finite, low < high, and whole steps.
struct ChartScale {
    double low = 0;
    double high = 1;
    double step = 1;
    double unit = 1;  // of sizes: 1, 1024, ...
};

// For values between `least` and `most`, whatever these are. 0 is on the axis unless the values lie far from
// it and close together; percentages always have it. type: see PdhType.
ChartScale ScaleFor(double least, double most, std::uint32_t type);

// A place on the axis in the counter's format; a size in the axis's unit.
std::string ScaleLabel(double value, const ChartScale& scale, std::uint32_t type, const FormatLocale& locale);
