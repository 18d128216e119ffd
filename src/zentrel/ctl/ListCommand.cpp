#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/Json.h"

#include "zentrel/EntryKeys.h"
#include "zentrel/KeyPath.h"
#include "zentrel/Printable.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/TopDownWalk.h"

#include <iomanip>

namespace zentrel {

namespace {

struct Options {
    std::string path{kServiceKey};
    bool all = false;
    bool asJson = false;
};

// What the listing tells of one key.
struct Line {
    std::string_view kind;
    std::optional<std::uint32_t> cacheId;
    bool hasGzip = false;
    bool hasDeflate = false;
    std::optional<CacheRecord> record;  // gzip's, when there are both
    std::optional<StatisticsRecord> statistics;

    double Ratio() const
    {
        if (record->uncompressedSize == 0) return 0;
        return static_cast<double>(record->compressedSize) / static_cast<double>(record->uncompressedSize);
    }
};

std::string_view KindOf(const KeyRow& row)
{
    const auto type = FindProperty(row.properties, Prop::KeyType);
    const Record record(type.value_or(PropertyView{}));
    if (record.Text() == kWebServerType) return "site";
    if (record.Text() == kVirtualDirType) return "vdir";
    if (IsEntry(row)) return "entry";
    return IsVariant(row) ? "variant" : "key";
}

Line Describe(const KeyRow& row)
{
    const auto find = [&](PropertyId id) { return FindProperty(row.properties, id); };
    Line line;
    if (const auto id = find(Prop::CacheId)) line.cacheId = Record(*id).Number();
    if (const auto deflate = find(Prop::DeflateRecord)) {
        line.hasDeflate = true;
        line.record = ParseCacheRecord(deflate->bytes);
    }
    if (const auto gzip = find(Prop::GzipRecord)) {
        line.hasGzip = true;
        if (const auto record = ParseCacheRecord(gzip->bytes)) line.record = record;
    }
    if (const auto statistics = find(Prop::Statistics))
        line.statistics = ParseStatisticsRecord(statistics->bytes);
    line.kind = KindOf(row);
    return line;
}

void WriteJsonLine(JsonWriter& json, const std::string& path, const Line& line)
{
    json.BeginObject().Key("path").Text(path).Key("name").Text(LastSegment(path)).Key("kind").Text(line.kind);
    if (line.cacheId) json.Key("cacheId").Number(*line.cacheId);
    if (line.hasGzip || line.hasDeflate) {
        json.Key("encodings").BeginArray();
        if (line.hasGzip) json.Text("gzip");
        if (line.hasDeflate) json.Text("deflate");
        json.EndArray();
    }
    if (line.record) {
        json.Key("uncompressedSize").Number(line.record->uncompressedSize);
        json.Key("compressedSize").Number(line.record->compressedSize);
        json.Key("ratio").Number(line.Ratio());
    }
    if (line.statistics) {
        json.Key("hits").Number(line.statistics->totalHits);
        json.Key("cacheHits").Number(line.statistics->cacheHits);
    }
    json.EndObject();
}

void WriteColumns(std::ostream& out, std::string_view kind, const std::array<std::string, 5>& columns,
                  std::string_view name)
{
    constexpr std::array kWidths{10, 14, 14, 8, 10};
    out << std::left << std::setw(8) << kind << std::right;
    for (std::size_t i = 0; i < columns.size(); ++i) out << std::setw(kWidths[i]) << columns[i];
    out << "  " << name << '\n';
}

void WriteLine(std::ostream& out, std::string_view name, const Line& line)
{
    std::array<std::string, 5> columns{"-", "-", "-", "-", "-"};
    if (line.cacheId) columns[0] = std::to_string(*line.cacheId);
    if (line.record) {
        columns[1] = std::to_string(line.record->uncompressedSize);
        columns[2] = std::to_string(line.record->compressedSize);
        std::array<char, 512> ratio{};
        std::snprintf(ratio.data(), ratio.size(), "%.1f%%", line.Ratio() * 100);
        columns[3] = ratio.data();
    }
    if (line.statistics) columns[4] = std::to_string(line.statistics->totalHits);
    WriteColumns(out, line.kind, columns, Printable(name));
}

// Calls `take` with the path and the row of each key that is to be listed.
template <class Take>
Done ForEachListed(TopDownWalk& walk, const Options& options, Take&& take)
{
    for (;;) {
        const auto row = walk.Next();
        if (!row) return Fail(row.error());
        if (!*row) return {};
        take(walk.Path(), **row);
        if (!options.all) walk.SkipChildren();
    }
}

Done RunList(const Context& context, const Options& options)
{
    const auto service = context.Open(Service::Role::Viewer);
    if (!service) return Fail(service.error());
    const auto txn = (*service)->Store().BeginRead();
    if (!txn) return Fail(txn.error());
    auto walk = TopDownWalk::Begin(*txn, options.path);
    if (!walk) return Fail(walk.error());
    if (options.asJson) {
        JsonWriter json(context.out);
        json.BeginArray();
        auto listed = ForEachListed(*walk, options, [&](const std::string& path, const KeyRow& row) {
            WriteJsonLine(json, path, Describe(row));
        });
        json.EndArray();
        return listed;
    }
    WriteColumns(context.out, "KIND", {"ID", "SIZE", "COMPRESSED", "RATIO", "HITS"}, "NAME");
    return ForEachListed(*walk, options, [&](const std::string& path, const KeyRow& row) {
        WriteLine(context.out, options.all ? path : LastSegment(path), Describe(row));
    });
}

}  // namespace

void AddListCommand(CLI::App& app, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand("ls", "List the keys below a key");
    command->add_option("PATH", options->path, "The key; LM/W3SVC when left out")->check(KeyPathCheck());
    command->add_flag("-r,--all", options->all, "All keys below it, at any depth");
    command->add_flag("--json", options->asJson, "Print JSON");
    command->callback(
        [&context, options] { context.run = [&context, options] { return RunList(context, *options); }; });
}

}  // namespace zentrel
