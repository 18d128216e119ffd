#pragma once

#include "export/CacheReport.h"
#include "format/FormatLocale.h"

#include <string>

// The report as a page of its own: style and chart are in it, nothing is loaded from anywhere and nothing
// runs. All that a server sent is text, never markup.
std::string ReportHtml(const CacheReport& report, const FormatLocale& locale, bool isRightToLeft = false);

// How the body of a page is dressed.
struct ReportDress {
    std::string chart;    // markup
    std::string table;    // attributes of a table, begin with a blank
    std::string numbers;  // of a cell that is no text
};

// What stands between <body> and </body>, for programs that draw less than all of HTML, too.
std::string ReportBody(const CacheReport& report, const FormatLocale& locale, const ReportDress& dress);
