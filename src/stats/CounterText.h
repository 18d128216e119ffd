#pragma once

#include "base/Translate.h"
#include "format/FormatLocale.h"

#include <cstdint>
#include <string>

// A counter's value as the performance summary shows it: 37.50% (also 0.00%), 1.25 MiB or the plain number.
// type: see PdhType.
std::string CounterText(double value, std::uint32_t type, const FormatLocale& locale);

// The caption of the performance summary: with the boost, how much more was served than the bytes that were
// sent, when these are known and the quotient is a number; "Performance Summary (Boost 215.40%)".
std::string SummaryCaption(double equivalentBytes, double compressedBytes, const FormatLocale& locale);
inline constexpr const char* kSummaryCaption = TRANSLATE_NOOP("frmMain", "Performance Summary");
