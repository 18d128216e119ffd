#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/ServiceActions.h"

#include "base/EnvironmentFolder.h"
#include "zentrel/EmbeddedTransport.h"
#include "zentrel/remote/ServerDirectory.h"

#include <array>
#include <cstdlib>

#include <unistd.h>

namespace zentrel {

namespace {

constexpr std::chrono::seconds kPatience{30};

struct Options {
    std::string server;
    std::filesystem::path socket;
    std::filesystem::path knownServers;
    std::string name;
    bool asJson = false;
};

using Action = std::function<Done(std::ostream&, ServiceManager&, const Options&)>;

// The user's file of known servers, which Quillet reads as well.
std::filesystem::path DefaultKnownServers()
{
    const auto folder = EnvironmentFolder("XDG_CONFIG_HOME");
    const auto home = EnvironmentFolder("HOME");
    return (folder.empty() ? home / ".config" : folder) / "quillet/servers.conf";
}

std::string HostName()
{
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "localhost";
}

std::unique_ptr<Transport> MakeTransport(const Context& context, const Options& options)
{
    RemoteTarget target;
    target.socket = options.socket;
    if (target.IsLocal()) return std::make_unique<RemoteTransport>(std::move(target));
    const auto& known = options.knownServers;
    return std::make_unique<ServerDirectory>(
        std::make_shared<EmbeddedTransport>(context.data, HostName()),
        ServerPlaces{LocalSockets(context.data), known.empty() ? DefaultKnownServers() : known});
}

Done RunOn(const Context& context, const Options& options, const Action& action)
{
    setenv("GRPC_VERBOSITY", "NONE", 0);  // what the library would write itself; a failure is one line here
    const auto transport = MakeTransport(context, options);
    auto manager = transport->OpenServiceManager(options.server, ServiceAccess::GenericRead);
    if (manager) return action(context.out, **manager, options);
    const bool saysWhy = manager.error().description != SystemText(Code::ServerUnavailable);
    if (saysWhy || !manager.error().Is(Code::ServerUnavailable)) return Fail(manager.error());
    return Fail(manager.error().code, "zentrelctl", "No zentreld that this user may talk to listens there.");
}

CLI::App* AddAction(CLI::App& service, Context& context, const char* name, const char* text,
                    const std::shared_ptr<Options>& options, Action action)
{
    auto* command = service.add_subcommand(name, text);
    auto* server = command->add_option("--server", options->server, "The host; this machine when left out");
    command->add_option("--known-servers", options->knownServers, "The file that says how hosts are reached");
    command->add_option("--socket", options->socket, "Where a zentreld of this machine listens")
        ->excludes(server);
    command->callback([&context, options, action = std::move(action)] {
        context.needsData = false;
        context.run = [&context, options, action] { return RunOn(context, *options, action); };
    });
    return command;
}

void AddNamed(CLI::App& service, Context& context, const char* name, const char* text, Action action)
{
    const auto options = std::make_shared<Options>();
    AddAction(service, context, name, text, options, std::move(action))
        ->add_option("NAME", options->name, "The service's name, in whatever case")
        ->required();
}

}  // namespace

void AddServiceCommands(CLI::App& app, Context& context)
{
    auto* service = app.add_subcommand("service", "Services of a zentreld host")->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    AddAction(*service, context, "list", "List the services", options,
              [](std::ostream& out, ServiceManager& manager, const Options& chosen) {
                  return ListServices(out, manager, chosen.asJson);
              })
        ->add_flag("--json", options->asJson, "Print JSON");
    AddNamed(*service, context, "query", "Show whether a service runs",
             [](std::ostream& out, ServiceManager& manager, const Options& chosen) {
                 return QueryService(out, manager, chosen.name);
             });
    AddNamed(*service, context, "start", "Start a service and wait until it runs",
             [](std::ostream& out, ServiceManager& manager, const Options& chosen) {
                 return StartService(out, manager, chosen.name, kPatience);
             });
    AddNamed(*service, context, "stop", "Stop a service and wait until it has",
             [](std::ostream& out, ServiceManager& manager, const Options& chosen) {
                 return StopService(out, manager, chosen.name, kPatience);
             });
}

}  // namespace zentrel
