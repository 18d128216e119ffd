#pragma once

#include "export/CacheReport.h"
#include "format/FormatLocale.h"

#include <string>
#include <string_view>

// The report as a page of its own: style and chart are in it, nothing is loaded from anywhere and nothing
// runs. All that a server sent is text, never markup.
std::string ReportHtml(const CacheReport& report, const FormatLocale& locale, bool isRightToLeft = false);

// Characters without width that stand in the body for simple readers, and in no text of a server: they break
// lines and set directions.
inline constexpr std::u16string_view kUnseen = u"\u200B\u2066\u2068\u2069";

// How the body of a page is dressed.
struct ReportDress {
    std::string chart;  // markup
    // Attributes, each with a blank in front:
    std::string table;         // of a table
    std::string list;          // more of a list of URLs
    std::string numbers;       // of a cell that is no text
    std::string numberTitles;  // of the title above it
    bool isRightToLeft = false;
    // For a reader that knows neither styles nor directions: kUnseen tell it, and columns are written in the
    // order in which they stand.
    bool isSimple = false;
};

// What stands between <body> and </body>, for programs that draw less than all of HTML, too.
std::string ReportBody(const CacheReport& report, const FormatLocale& locale, const ReportDress& dress);
