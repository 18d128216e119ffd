#include "export/ReportJson.h"

#include "export/ReportTables.h"
#include "zentrel/ctl/Json.h"

#include <algorithm>
#include <sstream>

namespace {

using zentrel::JsonWriter;

void WriteMoment(JsonWriter& json, DateTime moment)
{
    if (auto text = IsoText(moment)) {
        std::replace(text->begin(), text->end(), ' ', 'T');
        json.Text(*text);
    } else {
        json.Null();
    }
}

void WriteCell(JsonWriter& json, const FormatInput& cell)
{
    if (const auto* const text = std::get_if<std::string>(&cell)) {
        json.Text(*text);
    } else if (const auto* const number = std::get_if<std::int64_t>(&cell)) {
        json.Number(*number);
    } else if (const auto* const value = std::get_if<double>(&cell)) {
        json.Number(*value);
    } else {
        WriteMoment(json, std::get<DateTime>(cell));
    }
}

void WriteRow(JsonWriter& json, const ReportTable& table, const std::vector<FormatInput>& row)
{
    json.BeginObject();
    for (std::size_t i = 0; i < row.size(); ++i) {
        json.Key(table.columns[i].key);
        WriteCell(json, row[i]);
    }
    json.EndObject();
}

void WriteFigures(JsonWriter& json, const CacheFigures& figures)
{
    const auto table = FiguresTable(figures);
    WriteRow(json, table, table.rows.front());
}

void WriteTable(JsonWriter& json, const ReportTable& table)
{
    json.Key(table.key);
    if (table.isUpright) return WriteRow(json, table, table.rows.front());
    if (table.all) {
        json.BeginObject().Key("all");
        WriteFigures(json, *table.all);
        json.Key("shown");
    }
    json.BeginArray();
    for (const auto& row : table.rows) WriteRow(json, table, row);
    json.EndArray();
    if (table.all) json.EndObject();
    if (table.others.empty()) return;
    json.Key(table.key + "Others");
    WriteRow(json, table, table.others);
}

}  // namespace

std::string ReportJson(const CacheReport& report)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    JsonWriter json(out);
    json.BeginObject();
    json.Key("server").Text(report.server);
    json.Key("scannedAt");
    WriteMoment(json, report.scannedAt);
    for (const auto& table : ReportTables(report)) WriteTable(json, table);
    json.EndObject();
    return out.str();
}
