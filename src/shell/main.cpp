#include "help/PrintHelp.h"
#include "shell/Program.h"
#include "zentrel/SiteNumber.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>

namespace {

enum ExitCode { kFailed = 1, kWrongUsage = 2 };

int ReportUsage(const CLI::App& app, const std::string& text)
{
    std::cerr << "quillet: " << text.substr(0, text.find('\n')) << '\n' << app.help();
    return kWrongUsage;
}

int ParseAndRun(int argc, char** argv)
{
    StartOptions options;
    std::string sites;
    CLI::App app("Shows and tends the compression cache of a Zentrel server.", "quillet");
    auto* const demo =
        app.add_flag("--demo", options.demo, "Look at a server made from files of this machine");
    app.add_option("--zentrel-data", options.dataFolder,
                   "The data folder of this machine's server; by default zentrel in the user's data folder")
        ->type_name("DIR")
        ->excludes(demo);
    app.add_option("--server", options.server, "Connect to this server")->type_name("NAME")->excludes(demo);
    app.add_option("--sites", sites,
                   "The web sites to look at: all, or numbers as in 1,2,30; all with --server and --demo")
        ->type_name("LIST");
    app.add_option("--settings-file", options.settingsFile,
                   "Keep the settings in this file instead of the user's own; --demo keeps none without it")
        ->type_name("FILE");
    app.add_option("--screenshot", options.picture,
                   "Write a picture of the window with the tree expanded, print its path and end")
        ->type_name("FILE");
    std::string helpPage;
    const auto* const help = app.add_option("--help-page", helpPage,
                                            "Print a page of the help and end; without a name, the contents")
                                 ->type_name("[NAME]")
                                 ->expected(0, 1);
    app.set_version_flag("--version", "quillet " QUILLET_VERSION);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return error.get_exit_code() == 0 ? app.exit(error) : ReportUsage(app, error.what());
    }
    if (help->count() != 0) return PrintHelpPage(std::cout, std::cerr, helpPage);
    options.choosesSites = !sites.empty();
    if (options.choosesSites && sites != "all") {
        const auto numbers = zentrel::ParseSiteNumbers(sites);
        if (!numbers) return ReportUsage(app, numbers.error().description);
        options.sites = *numbers;
    }
    return RunProgram(std::move(options), argv[0]);
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "quillet: " << error.what() << '\n';
        return kFailed;
    }
}
