#include "zentrel/DataFolder.h"
#include "zentrel/ExitCode.h"
#include "zentrel/daemon/Daemon.h"
#include "zentrel/daemon/Log.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <exception>

namespace {

namespace Log = zentrel::Log;
namespace ExitCode = zentrel::ExitCode;

int Run(const zentrel::DaemonOptions& options)
{
    zentrel::StopSignals signals;
    std::signal(SIGHUP, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    auto daemon = zentrel::Daemon::Start(options);
    if (!daemon) {
        Log::Error("cannot start", daemon.error());
        return ExitCode::Failed;
    }
    if (auto done = daemon->Run(signals); !done) {
        Log::Error("failed", done.error());
        return ExitCode::Failed;
    }
    Log::Info("ended");
    return ExitCode::Done;
}

int ParseAndRun(int argc, char** argv)
{
    constexpr int kDay = 86'400;
    zentrel::DaemonOptions options;
    int interval = 60;
    CLI::App app("Keeps a Zentrel server's data folder in order.", "zentreld");
    app.add_option("--data", options.data, "The data folder; by default zentrel in the user's data folder");
    app.add_option("--interval", interval, "Seconds between two rounds, 1 to 86400; 60 when left out")
        ->check(CLI::Range(1, kDay));
    app.add_flag("--once", options.once, "End after one round");
    app.set_version_flag("--version", "zentreld " ZENTREL_VERSION);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);
        const std::string text = error.what();
        Log::Error(text.substr(0, text.find('\n')));
        return ExitCode::WrongUsage;
    }
    options.interval = std::chrono::seconds(interval);
    if (options.data.empty()) options.data = zentrel::DefaultDataFolder();
    if (!options.data.empty()) return Run(options);
    Log::Error("there is no home folder; --data is needed");
    return ExitCode::WrongUsage;
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        Log::Error(error.what());
        return ExitCode::Failed;
    }
}
