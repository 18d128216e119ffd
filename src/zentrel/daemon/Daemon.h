#pragma once

#include "base/Result.h"
#include "zentrel/Expiry.h"
#include "zentrel/MetricsServer.h"
#include "zentrel/Service.h"
#include "zentrel/ServiceTable.h"
#include "zentrel/StopSignals.h"
#include "zentrel/daemon/DaemonConfig.h"
#include "zentrel/remote/AdminServer.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace zentrel {

class Wakeups;

struct DaemonOptions {
    std::filesystem::path config;                  // empty: none
    std::filesystem::path data;                    // the data folder; empty: as the configuration says
    std::optional<std::chrono::seconds> interval;  // between two rounds; the same
    std::optional<MetricsPlace> metrics;           // the same
    bool once = false;                             // end after the first round; nothing is offered
};

// Keeps a data folder in order as its one writer, and offers its administration.
class Daemon {
public:
    // Reads the configuration and looks whether it could be used, no more.
    static Done Check(const DaemonOptions& options);

    // Clears up what a crash left behind. Fails as Service::Open, ReadDaemonConfig and AdminServer::Start do.
    static Result<Daemon> Start(const DaemonOptions& options);

    // Until a signal is raised. Failures of a round are logged, and the next round tries again; with
    // `once` they are the result.
    Done Run(StopSignals& signals, Wakeups& wakeups);

private:
    explicit Daemon(DaemonOptions options) : m_options(std::move(options)) {}
    Done Open();
    Done Offer();
    Done OfferMetrics();
    const MetricsPlace& Metrics() const { return m_options.metrics ? *m_options.metrics : m_config.metrics; }
    AdminOptions AdminSettings() const;
    std::chrono::seconds Interval() const;
    void Reload();
    Result<bool> TakeOver(DaemonConfig config);
    Done RunRound(StopSignals& signals);
    void Tell(const ExpiryResult& result);
    void TellMissingRoots(const std::vector<std::string>& roots);

    DaemonOptions m_options;
    DaemonConfig m_config;
    std::shared_ptr<Service> m_service;
    std::shared_ptr<ServiceTable> m_services;
    std::unique_ptr<AdminServer> m_admin;
    std::unique_ptr<MetricsServer> m_metrics;
    std::set<std::string> m_missingRoots;  // that the log has told of
};

}  // namespace zentrel
