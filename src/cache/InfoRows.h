#pragma once

#include "cache/FileInfo.h"
#include "format/FormatValue.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

// A row of an information panel: what it is called, which value of a record it shows and in which kind of
// format.
struct InfoRow {
    const char* caption;  // in English, as the tool tip
    FormatInput (*value)(const FileInfo& info);
    std::string_view kind = FormatKind::Plain;
    const char* toolTip = nullptr;
};

// The rows of the panels "Cache Totals" and "File Information", from the top.
std::span<const InfoRow> CacheTotalsRows();
std::span<const InfoRow> FileInfoRows();

// As the user reads them; the tool tip of a row without one is empty.
std::string CaptionOf(const InfoRow& row);
std::string ToolTipOf(const InfoRow& row);

// What each of the rows shows of a record, in the rows' order.
std::vector<std::string> InfoTexts(std::span<const InfoRow> rows, const FileInfo& info,
                                   const FormatLocale& locale);
