#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/Json.h"
#include "zentrel/ctl/PropertyText.h"
#include "zentrel/ctl/Table.h"

#include "zentrel/KeyPath.h"

namespace zentrel {

namespace {

struct Options {
    std::string path;
    bool asJson = false;
};

void WriteJsonValue(JsonWriter& json, const PropertyView& property)
{
    const Record record(property);
    switch (record.Type()) {
    case PropertyType::Number: json.Number(record.Number()); return;
    case PropertyType::Text: json.Text(record.Text()); return;
    case PropertyType::TextList:
        json.BeginArray();
        for (const auto& text : record.TextList()) json.Text(text);
        json.EndArray();
        return;
    case PropertyType::Binary: break;
    }
    const auto fields = DecodeRecord(property);
    if (fields.empty()) {
        json.Text(Hexadecimal(property.bytes));
        return;
    }
    json.BeginObject();
    for (const auto& field : fields) {
        json.Key(field.name);
        if (const auto* text = std::get_if<std::string>(&field.value)) json.Text(*text);
        if (const auto* number = std::get_if<std::uint64_t>(&field.value)) json.Number(*number);
        if (const auto* number = std::get_if<std::int32_t>(&field.value)) json.Number(*number);
        if (const auto* seconds = std::get_if<Seconds>(&field.value)) json.Number(seconds->value);
    }
    json.EndObject();
}

void WriteJson(std::ostream& out, std::string_view path, const KeyRow& row)
{
    JsonWriter json(out);
    json.BeginObject().Key("path").Text(path).Key("properties").BeginArray();
    ForEachProperty(row.properties, [&](const PropertyView& property) {
        json.BeginObject().Key("id").Number(property.id).Key("name").Text(PropertyName(property.id));
        json.Key("type").Text(TypeName(property.type)).Key("value");
        WriteJsonValue(json, property);
        json.EndObject();
    });
    json.EndArray().EndObject();
}

std::string FieldText(const RecordField& field)
{
    if (const auto* text = std::get_if<std::string>(&field.value)) return *text;
    if (const auto* number = std::get_if<std::uint64_t>(&field.value)) return std::to_string(*number);
    if (const auto* seconds = std::get_if<Seconds>(&field.value)) return std::to_string(seconds->value);
    return std::to_string(std::get<std::int32_t>(field.value));
}

std::string ValueText(const PropertyView& property)
{
    const Record record(property);
    if (record.Type() == PropertyType::Number) return std::to_string(record.Number());
    if (record.Type() == PropertyType::Text) return std::string(record.Text());
    if (record.Type() == PropertyType::Binary) return Hexadecimal(property.bytes);
    std::string all;
    for (const auto& text : record.TextList()) all += (all.empty() ? "" : " ") + text;
    return all;
}

void WriteText(std::ostream& out, const KeyRow& row)
{
    std::vector<std::vector<std::string>> rows{{"ID", "NAME", "TYPE", "VALUE"}};
    ForEachProperty(row.properties, [&](const PropertyView& property) {
        const auto fields = DecodeRecord(property);
        const auto value = fields.empty() ? ValueText(property) : std::string{};
        rows.push_back({std::to_string(property.id), std::string(PropertyName(property.id)),
                        std::string(TypeName(property.type)), value});
        for (const auto& field : fields)
            rows.push_back({"", "  " + std::string(field.name), "", FieldText(field)});
    });
    WriteTable(out, rows);
}

Done RunGet(const Context& context, const Options& options)
{
    const auto path = CheckPath(options.path);
    if (!path) return Fail(path.error());
    const auto service = context.Open(Service::Role::Viewer);
    if (!service) return Fail(service.error());
    const auto txn = (*service)->Store().BeginRead();
    if (!txn) return Fail(txn.error());
    const auto row = txn->Find(*path);
    if (!row) return Fail(row.error());
    if (!*row) return Fail(Code::FileNotFound, "zentrelctl", "There is no such key: " + std::string(*path));
    options.asJson ? WriteJson(context.out, *path, **row) : WriteText(context.out, **row);
    return {};
}

}  // namespace

void AddGetCommand(CLI::App& app, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand("get", "Show all properties of a key, records decoded");
    command->add_option("PATH", options->path, "The key, for example LM/W3SVC/1/Root/index.html")
        ->required()
        ->check(KeyPathCheck());
    command->add_flag("--json", options->asJson, "Print JSON");
    command->callback(
        [&context, options] { context.run = [&context, options] { return RunGet(context, *options); }; });
}

}  // namespace zentrel
