#pragma once

#include "export/CacheReport.h"

// The report as JSON, numbers in full (sizes in bytes, times in 100 nanoseconds, ratios as fractions), dates
// local. Bytes that are not UTF-8 become replacement characters.
std::string ReportJson(const CacheReport& report);
