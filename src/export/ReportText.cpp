#include "export/ReportText.h"

#include "base/Translate.h"
#include "export/ReadableText.h"
#include "export/ReportTables.h"

namespace {

void AddRow(std::string& text, const ReportTable& table, const std::vector<FormatInput>& row,
            const FormatLocale& locale)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0) text += '\t';
        text += ReadableText(CellText(row[i], table.columns[i], locale));
    }
    text += '\n';
}

void AddTable(std::string& text, const ReportTable& table, const FormatLocale& locale)
{
    text += '\n' + table.title + '\n';
    if (!table.note.empty()) text += table.note + '\n';
    if (table.rows.empty()) return;
    if (table.isUpright) {
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            text += table.columns[i].title + '\t' +
                    ReadableText(CellText(table.rows.front()[i], table.columns[i], locale)) + '\n';
        return;
    }
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        text += (i > 0 ? "\t" : "") + table.columns[i].title;
    text += '\n';
    for (const auto& row : table.rows) AddRow(text, table, row, locale);
    if (!table.others.empty()) AddRow(text, table, table.others, locale);
}

}  // namespace

std::string ReportText(const CacheReport& report, const FormatLocale& locale)
{
    auto text = Translate("CacheReport", "Zentrel Cache Report") + '\n' +
                Translate("CacheReport", "Server:") + ' ' + ReadableText(report.server) + '\n' +
                Translate("CacheReport", "Scanned:") + ' ' +
                FormatValue(report.scannedAt, FormatKind::Plain, locale) + '\n';
    for (const auto& table : ReportTables(report)) AddTable(text, table, locale);
    return text;
}
