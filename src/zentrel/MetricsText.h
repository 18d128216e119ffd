#pragma once

#include "zentrel/Counters.h"

#include <string>

namespace zentrel {

inline constexpr std::string_view kMetricsType = "text/plain; version=0.0.4; charset=utf-8";

// The sums of a service's whole life in the text format that metrics scrapers read. They are told exactly.
std::string MetricsText(const CounterTotals& totals);

}  // namespace zentrel
