#pragma once

#include "export/CacheReport.h"
#include "format/FormatLocale.h"

// The report as plain text: its sections one below the other, their cells parted by tabs.
std::string ReportText(const CacheReport& report, const FormatLocale& locale);
