#include "export/ReportHtml.h"

#include "base/Translate.h"
#include "export/ReadableText.h"
#include "export/ReportChart.h"
#include "export/ReportTables.h"

namespace {

constexpr std::size_t kMostOfCell = 400;  // characters

constexpr std::string_view kStyle = R"(
:root { color-scheme: light dark; --text: #1c1e21; --quiet: #5b6169; --back: #fff; --line: #d5d9de;
  --head: #eef1f4; --whole: #b3c6dd; --part: #2f6db5; }
@media (prefers-color-scheme: dark) { :root { --text: #e6e8ea; --quiet: #a3a9b1; --back: #1b1d20;
  --line: #43474d; --head: #2a2d32; --whole: #45566b; --part: #78b0f0; } }
@media print { :root { color-scheme: light; --text: #000; --quiet: #444; --back: #fff; --line: #bbb;
  --head: #eee; --whole: #b3c6dd; --part: #2f6db5; } h2 { break-after: avoid; }
  tr, svg { break-inside: avoid; } rect { print-color-adjust: exact; } body { font-size: 9pt; } }
body { margin: 2em auto; max-width: 72em; padding: 0 1.5em; color: var(--text); background: var(--back);
  font: 15px/1.45 system-ui, sans-serif; }
h1 { font-size: 1.6em; margin-bottom: 0.2em; } h2 { font-size: 1.2em; margin: 2em 0 0.4em; }
p { color: var(--quiet); margin: 0.2em 0 0.7em; } .wide { overflow-x: auto; }
table { border-collapse: collapse; } th, td { border: 1px solid var(--line); padding: 0.3em 0.7em;
  text-align: start; vertical-align: top; overflow-wrap: anywhere; } thead th, tbody th { background: var(--head); }
.n { text-align: end; white-space: nowrap; font-variant-numeric: tabular-nums; }
svg { display: block; width: 100%; max-width: 640px; margin: 1em 0; font-size: 12px; }
text { fill: var(--text); } .label { text-anchor: end; } .whole { fill: var(--whole); } .part { fill: var(--part); }
)";

class BodyWriter {
public:
    BodyWriter(const FormatLocale& locale, const ReportDress& dress) : m_locale(locale), m_dress(dress) {}

    void AddHead(const CacheReport& report)
    {
        const auto time = FormatValue(report.scannedAt, FormatKind::Plain, m_locale);
        m_out += "<h1>" + HtmlText(Translate("CacheReport", "Zentrel Cache Report")) + "</h1>\n<p>" +
                 HtmlText(Translate("CacheReport", "Server:")) + " <b>" +
                 HtmlText(report.server, kMostOfCell) + "</b><br>" +
                 HtmlText(Translate("CacheReport", "Scanned:")) + " <b>" + HtmlText(time) + "</b></p>\n";
    }

    void AddTable(const ReportTable& table)
    {
        m_out += "<h2>" + HtmlText(table.title) + "</h2>\n";
        if (!table.note.empty()) m_out += "<p>" + HtmlText(table.note) + "</p>\n";
        if (table.key == ReportKey::Types) m_out += m_dress.chart;
        if (table.rows.empty()) return;
        const auto columns = ColumnsOf(table);
        m_out += "<div class=\"wide\"><table" + m_dress.table + ">\n";
        if (table.isUpright) {
            for (const auto i : columns) AddUpright(table.columns[i], table.rows.front()[i]);
        } else {
            AddTitles(table, columns);
            for (const auto& row : table.rows) AddRow(table, columns, row);
            if (!table.others.empty()) AddRow(table, columns, table.others);
        }
        m_out += "</table></div>\n";
    }

    std::string Take() { return std::move(m_out); }

private:
    using Columns = std::vector<std::size_t>;

    // Those that people see.
    static Columns ColumnsOf(const ReportTable& table)
    {
        Columns columns;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            bool isShown = !table.columns[i].isOptional;
            for (const auto& row : table.rows) isShown = isShown || row[i] != FormatInput(std::string());
            if (isShown) columns.push_back(i);
        }
        return columns;
    }

    std::string_view AttributesOf(const ReportColumn& column) const
    {
        return column.isText ? std::string_view() : m_dress.numbers;
    }

    void AddCell(const char* tag, std::string_view attributes, const std::string& text)
    {
        m_out.append("<").append(tag).append(attributes).append(">").append(HtmlText(text, kMostOfCell));
        m_out.append("</").append(tag).append(">");
    }

    void AddTitles(const ReportTable& table, const Columns& columns)
    {
        m_out += "<thead><tr>";
        for (const auto i : columns) AddCell("th", AttributesOf(table.columns[i]), table.columns[i].title);
        m_out += "</tr></thead>\n";
    }

    void AddRow(const ReportTable& table, const Columns& columns, const std::vector<FormatInput>& row)
    {
        m_out += "<tr>";
        for (const auto i : columns)
            AddCell("td", AttributesOf(table.columns[i]), CellText(row[i], table.columns[i], m_locale));
        m_out += "</tr>\n";
    }

    void AddUpright(const ReportColumn& column, const FormatInput& value)
    {
        m_out += "<tr>";
        AddCell("td", {}, column.title);
        AddCell("td", AttributesOf(column), CellText(value, column, m_locale));
        m_out += "</tr>\n";
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
    dress.numbers = " class=\"n\"";
    const auto title = HtmlText(Translate("CacheReport", "Zentrel Cache Report") + " - " + report.server);
    return "<!DOCTYPE html>\n<html dir=\"" + std::string(isRightToLeft ? "rtl" : "ltr") +
           "\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
           "style-src 'unsafe-inline'\">\n"
           "<meta name=\"viewport\" content=\"width=device-width\">\n<title>" +
           title + "</title>\n<style>" + std::string(kStyle) + "</style>\n</head>\n<body>\n" +
           ReportBody(report, locale, dress) + "</body>\n</html>\n";
}
