#include "zentrel/ExitCode.h"
#include "zentrel/daemon/Daemon.h"
#include "zentrel/daemon/Log.h"
#include "zentrel/daemon/Wakeups.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <exception>

namespace {

namespace Log = zentrel::Log;
namespace ExitCode = zentrel::ExitCode;

int Run(const zentrel::DaemonOptions& options)
{
    zentrel::StopSignals signals;
    zentrel::Wakeups wakeups;
    std::signal(SIGPIPE, SIG_IGN);
    auto daemon = zentrel::Daemon::Start(options);
    if (!daemon) {
        Log::Error("cannot start", daemon.error());
        return ExitCode::Failed;
    }
    if (auto done = daemon->Run(signals, wakeups); !done) {
        Log::Error("failed", done.error());
        return ExitCode::Failed;
    }
    Log::Info("ended");
    return ExitCode::Done;
}

int Check(const zentrel::DaemonOptions& options)
{
    if (options.config.empty()) {
        Log::Error("there is no configuration file; --config names one");
        return ExitCode::WrongUsage;
    }
    if (auto checked = zentrel::Daemon::Check(options); !checked) {
        Log::Error("the configuration is not good", checked.error());
        return ExitCode::Failed;
    }
    Log::Info("the configuration is good: " + options.config.string());
    return ExitCode::Done;
}

// The system's own configuration counts only when nobody says where the data are.
void FindConfig(zentrel::DaemonOptions& options)
{
    constexpr auto kUsual = "/etc/zentrel/zentreld.conf";
    std::error_code error;
    if (options.config.empty() && options.data.empty() && std::filesystem::exists(kUsual, error))
        options.config = kUsual;
    if (!options.config.empty()) options.config = std::filesystem::absolute(options.config);
}

void TakeMetrics(const std::string& text, zentrel::DaemonOptions& options)
{
    auto place = zentrel::ReadMetricsPlace(text);
    if (!place) throw CLI::ValidationError("--metrics", place.error().description);
    options.metrics = std::move(*place);
}

int ParseAndRun(int argc, char** argv)
{
    constexpr int kDay = 86'400;
    zentrel::DaemonOptions options;
    int interval = 0;
    bool isCheck = false;
    CLI::App app("Keeps a Zentrel server's data folder in order and offers its administration.", "zentreld");
    app.add_option("--config", options.config, "The configuration file; see zentreld(8)");
    app.add_flag("--check-config", isCheck, "Tell whether the configuration file is good, and end");
    app.add_option("--data", options.data, "The data folder; by default zentrel in the user's data folder");
    app.add_option("--interval", interval, "Seconds between two rounds, 1 to 86400; 60 when left out")
        ->check(CLI::Range(1, kDay));
    app.add_option_function<std::string>(
        "--metrics", [&options](const std::string& text) { TakeMetrics(text, options); },
        "Where metrics are offered, such as 127.0.0.1:9280; nowhere when empty");
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
    if (interval != 0) options.interval = std::chrono::seconds(interval);
    FindConfig(options);
    return isCheck ? Check(options) : Run(options);
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
