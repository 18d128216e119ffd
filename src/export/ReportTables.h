#pragma once

#include "export/CacheReport.h"
#include "format/FormatValue.h"

#include <optional>
#include <string>
#include <vector>

struct ReportColumn {
    std::string key;    // for programs; never translated
    std::string title;  // for people
    std::string_view kind = FormatKind::Plain;
    bool isText = false;     // a server's, any bytes
    bool isBehind = false;   // people read it behind the text before it, where there is one
    std::string empty = {};  // what people read for an empty text
    bool isPath = false;     // reads from the left in any language
};

// A section of the report as every form of it shows it. A cell is a text, an integer, a double or a date.
struct ReportTable {
    std::string key, title;
    std::string note;  // how much of all is shown; may be empty
    std::vector<ReportColumn> columns;
    std::vector<std::vector<FormatInput>> rows;
    std::vector<FormatInput> others;  // what was too much for rows, summed up; may be empty
    std::optional<CacheFigures> all;  // of a list: all that belong there
    bool isUpright = false;           // one row, better read from top to bottom
};

namespace ReportKey {
inline constexpr std::string_view Types = "fileTypes";  // the section that the chart stands in
}

std::vector<ReportTable> ReportTables(const CacheReport& report);

// All figures as one row.
ReportTable FiguresTable(const CacheFigures& figures);

// What a person reads in a cell; a server's text is still as it came.
std::string CellText(const FormatInput& cell, const ReportColumn& column, const FormatLocale& locale);

// The file type's name, as a person reads it.
std::string TypeName(const std::string& type);
std::string OthersName(std::int64_t others);

// "2024-01-31 23:59:59", local; nothing for the empty date and for what no calendar holds.
std::optional<std::string> IsoText(DateTime moment);
