#pragma once

#include "export/CacheReport.h"

// The report as comma separated values in UTF-8: its sections one below the other, each with its title, a
// line of column titles and its rows; an empty line between them. All lines have the same number of cells.
// Numbers are in full (sizes in bytes, times in 100 nanoseconds, ratios as fractions) with "." as decimal
// point; texts are never formulas to the program that opens them.
std::string ReportCsv(const CacheReport& report);
