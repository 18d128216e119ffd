#pragma once

#include "export/CacheReport.h"
#include "format/FormatLocale.h"

#include <string>
#include <string_view>

// The report as a page of its own: style and chart are in it, nothing is loaded from anywhere and nothing
// runs. All that a server sent is text, never markup.
std::string ReportHtml(const CacheReport& report, const FormatLocale& locale, bool isRightToLeft = false);

// A character without width that a line may break at.
inline constexpr std::string_view kBreakSpace = "\xE2\x80\x8B";

// How the body of a page is dressed.
struct ReportDress {
    std::string chart;  // markup
    // Attributes, each with a blank in front:
    std::string table;         // of a table
    std::string list;          // more of a list of URLs
    std::string numbers;       // of a cell that is no text
    std::string numberTitles;  // of the title above it
    bool isRightToLeft = false;
    bool isToldWhereToBreak = false;  // by kBreakSpace in long words, where styles are not understood
};

// What stands between <body> and </body>, for programs that draw less than all of HTML, too.
std::string ReportBody(const CacheReport& report, const FormatLocale& locale, const ReportDress& dress);
