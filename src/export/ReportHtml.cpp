#include "export/ReportHtml.h"

#include "base/Translate.h"
#include "export/ReadableText.h"
#include "export/ReportChart.h"
#include "export/ReportTables.h"
#include "zentrel/Printable.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostOfCell = 400;  // characters
constexpr std::size_t kMostOfWord = 20;
constexpr std::string_view kBreakSpace = "\xE2\x80\x8B";  // a line may break at it
// Around a text that reads from the left, and around one that reads as its first letter does.
constexpr std::string_view kFromLeft = "\xE2\x81\xA6", kAsItBegins = "\xE2\x81\xA8";
constexpr std::string_view kEndOfText = "\xE2\x81\xA9";

constexpr std::string_view kStyle = R"(
:root { color-scheme: light dark; --text: #1c1e21; --quiet: #5b6169; --back: #fff; --line: #d5d9de;
  --head: #eef1f4; --whole: #b3c6dd; --part: #2f6db5; }
@media (prefers-color-scheme: dark) { :root { --text: #e6e8ea; --quiet: #a3a9b1; --back: #1b1d20;
  --line: #43474d; --head: #2a2d32; --whole: #45566b; --part: #78b0f0; } }
@media print { :root { color-scheme: light; --text: #000; --quiet: #444; --back: #fff; --line: #bbb;
  --head: #eee; --whole: #b3c6dd; --part: #2f6db5; } }
body { margin: 2em auto; max-width: 72em; padding: 0 1.5em; color: var(--text); background: var(--back);
  font: 15px/1.45 system-ui, sans-serif; }
h1 { font-size: 1.6em; margin-bottom: 0.2em; } h2 { font-size: 1.2em; margin: 2em 0 0.4em; }
p { color: var(--quiet); margin: 0.2em 0 0.7em; } .wide { overflow-x: auto; }
table { border-collapse: collapse; } th, td { border: 1px solid var(--line); padding: 0.3em 0.7em;
  text-align: start; vertical-align: top; } th { background: var(--head); }
td:first-child, .list td:nth-child(2) { overflow-wrap: anywhere; min-width: 4em; }
.list { width: 100%; } .list th:first-child { width: 45%; } .list td:nth-child(2) { min-width: 7em; }
tbody .n { white-space: nowrap; }
.n { text-align: right; font-variant-numeric: tabular-nums; }
svg { display: block; direction: ltr; width: 100%; max-width: 640px; margin: 1em 0; font-size: 12px; }
text { fill: var(--text); } .label { text-anchor: end; }
.whole { fill: var(--whole); } .part { fill: var(--part); }
@media print { body { margin: 0; max-width: none; padding: 0; font-size: 8.5pt; } .wide { overflow: visible; }
  th, td { padding: 0.2em 0.4em; } h1, h2, p { break-after: avoid; } tr, svg { break-inside: avoid; }
  rect, th { print-color-adjust: exact; } }
)";

// With places to break in words that are too long for a column.
std::string WithBreaks(std::string_view text)
{
    constexpr std::string_view kUsualBreaks = " /-?";
    const auto readable = ReadableText(text, kMostOfCell);
    std::string broken;
    std::size_t length = 0;
    for (std::string_view rest = readable; !rest.empty();) {
        const auto piece = zentrel::TakeCharacter(rest).bytes;
        length = kUsualBreaks.find(piece) != std::string_view::npos ? 0 : length + 1;
        broken += HtmlText(piece);
        if (length < kMostOfWord) continue;
        broken += kBreakSpace;
        length = 0;
    }
    return broken;
}

// Of the width of a list, in %: as much as titles and values need.
int ShareOf(const ReportColumn& column)
{
    constexpr int kSite = 16, kSize = 16, kDate = 13, kNumber = 8;
    if (column.isText) return kSite;
    if (column.kind == FormatKind::Large) return kSize;
    return column.key == "expires" ? kDate : kNumber;
}

class BodyWriter {
public:
    BodyWriter(const FormatLocale& locale, const ReportDress& dress) : m_locale(locale), m_dress(dress) {}

    void AddHead(const CacheReport& report)
    {
        const auto time = FormatValue(report.scannedAt, FormatKind::Plain, m_locale);
        m_out += "<h1>" + HtmlText(Translate("CacheReport", "Zentrel Cache Report")) + "</h1>\n<p>" +
                 HtmlText(Translate("CacheReport", "Server:")) + " <b>" + Isolated(report.server) +
                 "</b><br>" + HtmlText(Translate("CacheReport", "Scanned:")) + " <b>" + Isolated(time) +
                 "</b></p>\n";
    }

    void AddTable(const ReportTable& table)
    {
        m_out += "<h2>" + HtmlText(table.title) + "</h2>\n";
        if (!table.note.empty()) m_out += "<p>" + HtmlText(table.note) + "</p>\n";
        if (table.key == ReportKey::Types) m_out += m_dress.chart;
        if (table.rows.empty()) return;
        m_out += "<div class=\"wide\"><table" + m_dress.table + (table.all ? m_dress.list : "") + ">\n";
        if (table.isUpright) {
            for (std::size_t i = 0; i < table.columns.size(); ++i)
                AddUpright(table.columns[i], table.rows.front()[i]);
        } else {
            AddTitles(table);
            for (const auto& row : table.rows) AddRow(table, row);
            if (!table.others.empty()) AddRow(table, table.others);
        }
        m_out += "</table></div>\n";
    }

    std::string Take() { return std::move(m_out); }

private:
    std::string_view AttributesOf(const ReportColumn& column) const
    {
        return column.isText ? std::string_view() : m_dress.numbers;
    }

    // In a page that is written from the right, sizes and paths still read from the left.
    std::string Isolated(const std::string& text, bool isPath = false) const
    {
        auto escaped = m_dress.isSimple ? WithBreaks(text) : HtmlText(text, kMostOfCell);
        if (!m_dress.isRightToLeft || escaped.empty()) return escaped;
        if (!m_dress.isSimple) return (isPath ? "<bdi dir=\"ltr\">" : "<bdi>") + escaped + "</bdi>";
        return std::string(isPath ? kFromLeft : kAsItBegins).append(escaped).append(kEndOfText);
    }

    // A number and its unit stay in one line.
    std::string ValueText(const FormatInput& cell, const ReportColumn& column) const
    {
        const auto text = CellText(cell, column, m_locale);
        if (column.isText || std::holds_alternative<DateTime>(cell)) return text;
        std::string joined;
        for (const char c : text) joined += c == ' ' ? std::string("\xC2\xA0") : std::string(1, c);
        return joined;
    }

    static std::string TextBehind(const FormatInput& cell)
    {
        const auto& text = std::get<std::string>(cell);
        return text.empty() ? text : " ?" + text;
    }

    std::string Cell(const char* tag, std::string_view attributes, const std::string& text,
                     bool isPath = false) const
    {
        // Behind a table that ends in a cell without any text, the window leaves no room for the next title.
        const auto shown = text.empty() ? std::string("&nbsp;") : Isolated(text, isPath);
        std::string cell = "<";
        cell.append(tag).append(attributes).append(">").append(shown);
        return cell.append("</").append(tag).append(">");
    }

    void AddCells(std::vector<std::string> cells)
    {
        if (m_dress.isSimple && m_dress.isRightToLeft) std::reverse(cells.begin(), cells.end());
        m_out += "<tr>";
        for (const auto& cell : cells) m_out += cell;
        m_out += "</tr>";
    }

    // A list is as wide as the page: the URLs take what the other columns leave.
    std::string WidthIn(const ReportTable& table, const ReportColumn& column) const
    {
        if (!m_dress.isSimple || !table.all) return {};
        int share = 100;
        if (!column.isPath) {
            share = ShareOf(column);
        } else {
            for (const auto& other : table.columns)
                if (!other.isPath && !other.isBehind) share -= ShareOf(other);
        }
        return " width=\"" + std::to_string(share) + "%\"";
    }

    void AddTitles(const ReportTable& table)
    {
        std::vector<std::string> cells;
        for (const auto& column : table.columns)
            if (!column.isBehind)
                cells.push_back(Cell("th",
                                     (column.isText ? "" : m_dress.numberTitles) + WidthIn(table, column),
                                     column.title));
        m_out += "<thead>";
        AddCells(std::move(cells));
        m_out += "</thead>\n";
    }

    void AddRow(const ReportTable& table, const std::vector<FormatInput>& row)
    {
        std::vector<std::string> cells;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const auto& column = table.columns[i];
            if (column.isBehind) continue;
            auto text = ValueText(row[i], column);
            if (i + 1 < row.size() && table.columns[i + 1].isBehind) text += TextBehind(row[i + 1]);
            cells.push_back(Cell("td", AttributesOf(column), text, column.isPath));
        }
        AddCells(std::move(cells));
        m_out += '\n';
    }

    void AddUpright(const ReportColumn& column, const FormatInput& value)
    {
        AddCells({Cell("td", {}, column.title), Cell("td", AttributesOf(column), ValueText(value, column))});
        m_out += '\n';
    }

    const FormatLocale& m_locale;
    const ReportDress& m_dress;
    std::string m_out;
};

}  // namespace

std::string ReportBody(const CacheReport& report, const FormatLocale& locale, const ReportDress& dress)
{
    BodyWriter body(locale, dress);
    body.AddHead(report);
    for (const auto& table : ReportTables(report)) body.AddTable(table);
    return body.Take();
}

std::string ReportHtml(const CacheReport& report, const FormatLocale& locale, bool isRightToLeft)
{
    ReportDress dress;
    if (const auto bars = ReportChart::BarsOf(report, locale); !bars.empty())
        dress.chart = ReportChart::Svg(bars);
    dress.list = " class=\"list\"";
    dress.numbers = " class=\"n\"";
    dress.numberTitles = dress.numbers;
    dress.isRightToLeft = isRightToLeft;
    const auto title = HtmlText(Translate("CacheReport", "Zentrel Cache Report") + " - " + report.server);
    return "<!DOCTYPE html>\n<html dir=\"" + std::string(isRightToLeft ? "rtl" : "ltr") +
           "\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
           "style-src 'unsafe-inline'\">\n"
           "<meta name=\"viewport\" content=\"width=device-width\">\n<title>" +
           title + "</title>\n<style>" + std::string(kStyle) + "</style>\n</head>\n<body>\n" +
           ReportBody(report, locale, dress) + "</body>\n</html>\n";
}
