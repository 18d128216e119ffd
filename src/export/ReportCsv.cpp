#include "export/ReportCsv.h"

#include "base/Csv.h"
#include "base/Translate.h"
#include "export/ReadableText.h"
#include "export/ReportTables.h"

#include <algorithm>

namespace {

std::string CellOf(const FormatInput& cell, const ReportColumn& column)
{
    if (const auto* const text = std::get_if<std::string>(&cell))
        return csv::Cell(text->empty() ? column.empty : ReadableText(*text));
    if (const auto* const number = std::get_if<std::int64_t>(&cell)) return std::to_string(*number);
    if (const auto* const value = std::get_if<double>(&cell)) return csv::Cell(*value);
    return IsoText(std::get<DateTime>(cell)).value_or("");
}

class CsvLines {
public:
    explicit CsvLines(std::size_t width) : m_width(width) {}

    void Add(const std::vector<std::string>& cells)
    {
        for (std::size_t i = 0; i < m_width; ++i) {
            if (i > 0) m_text += ',';
            if (i < cells.size()) m_text += cells[i];
        }
        m_text += csv::kLineEnd;
    }

    std::string Text() { return std::move(m_text); }

private:
    std::size_t m_width;
    std::string m_text;
};

void AddRow(CsvLines& lines, const ReportTable& table, const std::vector<FormatInput>& row)
{
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < row.size(); ++i) cells.push_back(CellOf(row[i], table.columns[i]));
    lines.Add(cells);
}

void AddTable(CsvLines& lines, const ReportTable& table)
{
    lines.Add({});
    lines.Add({csv::Cell(table.title), csv::Cell(table.note)});
    std::vector<std::string> titles;
    for (const auto& column : table.columns) titles.push_back(csv::Cell(column.title));
    lines.Add(titles);
    for (const auto& row : table.rows) AddRow(lines, table, row);
    if (!table.others.empty()) AddRow(lines, table, table.others);
}

}  // namespace

std::string ReportCsv(const CacheReport& report)
{
    const auto tables = ReportTables(report);
    std::size_t width = 2;
    for (const auto& table : tables) width = std::max(width, table.columns.size());
    CsvLines lines(width);
    lines.Add({csv::Cell(Translate("CacheReport", "Server")), csv::Cell(ReadableText(report.server))});
    lines.Add({csv::Cell(Translate("CacheReport", "Scanned")), IsoText(report.scannedAt).value_or("")});
    for (const auto& table : tables) AddTable(lines, table);
    return lines.Text();
}
