#pragma once

#include "stats/CounterHistory.h"

#include <span>
#include <string>

// The history as comma separated values with a header line: "Time" and the names, then a line for each sample
// with its local time ("2026-11-23T14:05:09.123+01:00") and its values in full, with "." as decimal point;
// where there is none the cell is empty. Lines end in CR LF.
std::string CountersAsCsv(const CounterHistory& history, std::span<const std::string> names);

// Milliseconds since 1970 as local date and time with the offset from UTC.
std::string LocalIsoTime(std::int64_t utc);
