#include "zentrel/ctl/Context.h"

#include "zentrel/Printable.h"

#include <unistd.h>

#include <iostream>

namespace zentrel {

namespace {

struct Options {
    std::string path;
    bool tree = false;
    bool yes = false;
};

bool UserAgrees(const std::string& path)
{
    std::cerr << "Delete every cached entry at and below " << Printable(path) << "? [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

Done RunRemove(const Context& context, const Options& options)
{
    const auto service = context.Open(Service::Role::Writer);
    if (!service) return Fail(service.error());
    if (!options.tree) return (*service)->DeleteEntry(options.path);
    if (!options.yes && !UserAgrees(options.path)) return Cancelled("Nothing was deleted.");
    const auto deleted = (*service)->DeleteTree(options.path);
    if (!deleted && deleted.error().Is(Code::FileNotFound))
        return Fail(Code::FileNotFound, "zentrelctl", "There is no such key: " + options.path);
    if (!deleted) return Fail(deleted.error());
    context.out << Counted(*deleted, "entry", "entries") << " deleted\n";
    return {};
}

}  // namespace

void AddRemoveCommand(CLI::App& app, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand("rm", "Delete a cached URL, or all of them below a key");
    command->add_option("PATH", options->path, "The entry's key")->required()->check(KeyPathCheck());
    command->add_flag("--tree", options->tree, "Delete every entry at and below the key");
    command->add_flag("--yes", options->yes, "Do not ask");
    command->callback([&context, options] {
        if (options->tree && !options->yes && isatty(STDIN_FILENO) == 0)
            throw CLI::ValidationError("rm --tree", "without a terminal to ask on it needs --yes");
        context.run = [&context, options] { return RunRemove(context, *options); };
    });
}

}  // namespace zentrel
