#pragma once

#include "base/Result.h"
#include "zentrel/Expiry.h"
#include "zentrel/Service.h"
#include "zentrel/StopSignals.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace zentrel {

struct DaemonOptions {
    std::filesystem::path data;         // the data folder
    std::chrono::seconds interval{60};  // between two rounds
    bool once = false;                  // end after the first round
};

// Keeps a data folder in order as its one writer: removes at each interval what is of no more use.
class Daemon {
public:
    // Clears up what a crash left behind. Fails as Service::Open does.
    static Result<Daemon> Start(const DaemonOptions& options);

    // Until a signal is raised. Failures of a round are logged, and the next round tries again; with
    // `once` they are the result.
    Done Run(StopSignals& signals);

private:
    Daemon(DaemonOptions options, std::shared_ptr<Service> service)
        : m_options(std::move(options)),
          m_service(std::move(service))
    {
    }
    Done RunRound(StopSignals& signals);
    void Tell(const ExpiryResult& result);
    void TellMissingRoots(const std::vector<std::string>& roots);

    DaemonOptions m_options;
    std::shared_ptr<Service> m_service;
    std::set<std::string> m_missingRoots;  // that the log has told of
};

}  // namespace zentrel
