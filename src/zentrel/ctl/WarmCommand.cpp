#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/Progress.h"

#include "zentrel/StopSignals.h"
#include "zentrel/Warm.h"

namespace zentrel {

namespace {

Done RunWarm(const Context& context, const WarmOptions& options)
{
    StopSignals signals;
    const auto service = context.Open(Service::Role::Writer);
    if (!service) return Fail(service.error());
    Progress progress("Warming site " + std::to_string(options.site));
    const auto warmed = Warm(**service, options, [&](std::uint64_t done, std::uint64_t total) {
        progress.Show(done, total);
        return !signals.Raised();
    });
    progress.Clear();
    if (!warmed) return Fail(warmed.error());
    context.out << "site " << options.site << ": " << Counted(warmed->cached, "file", "files")
                << " in the cache, " << warmed->skipped << " skipped\n";
    if (signals.Raised()) return Cancelled("Stopped before the end; what is cached stays.");
    return {};
}

}  // namespace

void AddWarmCommand(CLI::App& app, Context& context)
{
    const auto options = std::make_shared<WarmOptions>();
    auto* command = app.add_subcommand("warm", "Cache what is compressible below a site's document root");
    AddSiteNumber(*command, "SITE", options->site);
    command->add_option("--below", options->below, "Only URLs below this path")->check(KeyPathCheck());
    command->add_option("--most", options->mostFiles, "Stop after so many cached files")
        ->check(CLI::Range(std::uint64_t{1}, std::uint64_t{INT64_MAX}));
    command->callback(
        [&context, options] { context.run = [&context, options] { return RunWarm(context, *options); }; });
}

}  // namespace zentrel
