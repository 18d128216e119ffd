#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/Json.h"
#include "zentrel/ctl/PropertyText.h"
#include "zentrel/ctl/Table.h"

#include "zentrel/Counters.h"

#include <array>
#include <cstdio>

namespace zentrel {

namespace {

struct Options {
    bool asJson = false;
    bool reset = false;
};

std::string_view UnitName(CounterKind kind)
{
    switch (kind) {
    case CounterKind::Size: return "bytes";
    case CounterKind::Percent: return "percent";
    case CounterKind::Count: break;
    }
    return "count";
}

void WriteJson(std::ostream& out, const CounterTotals& totals)
{
    JsonWriter json(out);
    json.BeginObject().Key("since").Text(IsoTime(totals.sinceTicks)).Key("counters").BeginArray();
    for (const auto& counter : Derive(totals)) {
        json.BeginObject().Key("name").Text(counter.name).Key("value").Number(counter.value);
        json.Key("unit").Text(UnitName(counter.kind)).EndObject();
    }
    json.EndArray().EndObject();
}

void WriteText(std::ostream& out, const CounterTotals& totals)
{
    std::vector<std::vector<std::string>> rows;
    for (const auto& counter : Derive(totals)) {
        std::array<char, 400> value{};
        const auto* const shape = counter.kind == CounterKind::Percent ? "%.2f %%" : "%.0f";
        std::snprintf(value.data(), value.size(), shape, counter.value);
        rows.push_back({std::string(counter.name), value.data()});
    }
    rows.push_back({"Since", IsoTime(totals.sinceTicks)});
    WriteTable(out, rows);
}

Done RunCounters(const Context& context, const Options& options)
{
    const auto service = context.Open(options.reset ? Service::Role::Writer : Service::Role::Viewer);
    if (!service) return Fail(service.error());
    const auto totals = (*service)->Counters();
    if (!totals) return Fail(totals.error());
    options.asJson ? WriteJson(context.out, *totals) : WriteText(context.out, *totals);
    return options.reset ? (*service)->ResetCounters() : Done();
}

}  // namespace

void AddCountersCommand(CLI::App& app, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand("counters", "Show the server's counters");
    command->add_flag("--json", options->asJson, "Print JSON");
    command->add_flag("--reset", options->reset, "Start them again from 0 after they were shown");
    command->callback([&context, options] {
        context.run = [&context, options] { return RunCounters(context, *options); };
    });
}

}  // namespace zentrel
