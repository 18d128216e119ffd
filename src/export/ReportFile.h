#pragma once

#include "base/Result.h"
#include "export/CacheReport.h"
#include "format/FormatLocale.h"

#include <QFont>
#include <QString>

#include <optional>

// The kinds of files that a report is saved as, told apart by their suffixes.
enum class ReportFormat { Html, Pdf, Csv, Json };

// By "html", "htm", "pdf", "csv" or "json", whatever the case; nothing for any other suffix.
std::optional<ReportFormat> ReportFormatOf(const QString& fileName);

// How a report for paper, or for a reader elsewhere, is set.
struct ReportSetting {
    FormatLocale locale;
    QFont font;
    bool isRightToLeft = false;
};

// Writes the whole file or leaves what was there. PDF is A4 with page numbers. Fails with the file
// system's words.
Done SaveReport(const QString& fileName, ReportFormat format, const CacheReport& report,
                const ReportSetting& setting);
