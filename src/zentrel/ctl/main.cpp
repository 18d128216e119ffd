#include "zentrel/ctl/Context.h"

#include "zentrel/DataFolder.h"
#include "zentrel/ExitCode.h"
#include "zentrel/Printable.h"

#include <exception>
#include <iostream>

namespace {

namespace ExitCode = zentrel::ExitCode;

int Report(std::string_view description, std::uint32_t code, int exitCode)
{
    std::cerr << "zentrelctl: " << zentrel::Printable(description) << " (error " << code << ")\n";
    return exitCode;
}

int ReportUsage(std::string_view description)
{
    return Report(description.substr(0, description.find('\n')), Code::InvalidParameter,
                  ExitCode::WrongUsage);
}

// A word that no command knows would be told of as a command that is missing.
int ReportParseError(const CLI::App& app, const CLI::ParseError& error)
{
    const auto unknown = app.remaining(true);
    const bool isMissing = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
    if (isMissing && !unknown.empty())
        return ReportUsage("There is no command or option \"" + unknown.front() +
                           "\" here; --help lists them.");
    return ReportUsage(error.what());
}

int Run(int argc, char** argv)
{
    CLI::App app("Sets up a Zentrel server's data folder, fills its cache and looks into it.", "zentrelctl");
    zentrel::Context context{{}, std::cout};
    app.add_option("--data", context.data, "The data folder; by default zentrel in the user's data folder");
    app.set_version_flag("--version", "zentrelctl " ZENTREL_VERSION);
    app.require_subcommand(1)->fallthrough();
    zentrel::AddSiteCommands(app, context);
    zentrel::AddWarmCommand(app, context);
    zentrel::AddReplayCommand(app, context);
    zentrel::AddListCommand(app, context);
    zentrel::AddGetCommand(app, context);
    zentrel::AddRemoveCommand(app, context);
    zentrel::AddCountersCommand(app, context);
    zentrel::AddServiceCommands(app, context);
    zentrel::AddCertCommands(app, context);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return error.get_exit_code() == 0 ? app.exit(error) : ReportParseError(app, error);
    }

    if (context.data.empty()) context.data = zentrel::DefaultDataFolder();
    if (context.needsData && context.data.empty())
        return ReportUsage("There is no home folder; --data is needed.");
    const auto done = context.run();
    std::cout.flush();
    if (!done) return Report(done.error().description, done.error().Plain(), ExitCode::Failed);
    if (!std::cout) return Report("The output could not be written.", Code::IoError, ExitCode::Failed);
    return ExitCode::Done;
}

}  // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        return Report(SystemText(Code::OutOfMemory), Code::OutOfMemory, ExitCode::Failed);
    } catch (const std::exception& error) {
        return Report(error.what(), Code::IoError, ExitCode::Failed);
    }
}
