#include "zentrel/daemon/Daemon.h"

#include "zentrel/RecordLayout.h"
#include "zentrel/daemon/Log.h"

namespace zentrel {

Result<Daemon> Daemon::Start(const DaemonOptions& options)
{
    auto service = Service::Open(options.data, Service::Role::Writer);
    if (!service) return Fail(service.error());
    Log::Info("opened " + options.data.string());
    return Daemon(options, std::move(*service));
}

Done Daemon::Run(StopSignals& signals)
{
    for (;;) {
        auto round = RunRound(signals);
        if (m_options.once) return round;
        if (!round) Log::Error("the round was given up", round.error());
        if (signals.WaitFor(m_options.interval)) break;
    }
    return m_service->Flush();
}

Done Daemon::RunRound(StopSignals& signals)
{
    auto result = RemoveStaleEntries(*m_service, TicksNow(), [&signals] { return signals.Raised(); });
    if (!result) return Fail(result.error());
    Tell(*result);
    auto flushed = m_service->Flush();
    if (flushed && result->firstFailure) return Fail(*result->firstFailure);
    return flushed;
}

void Daemon::Tell(const ExpiryResult& result)
{
    TellMissingRoots(result.missingRoots);
    if (m_options.once || result.expired + result.vanished + result.failed != 0)
        Log::Info(std::to_string(result.entries) + " entries looked at, " + std::to_string(result.expired) +
                  " expired and removed, " + std::to_string(result.vanished) +
                  " without their file and removed, " + std::to_string(result.failed) + " not removable");
}

// A folder that stays away is told of once, and again when it has been there in between.
void Daemon::TellMissingRoots(const std::vector<std::string>& roots)
{
    std::set<std::string> missing(roots.begin(), roots.end());
    for (const auto& root : missing)
        if (!m_missingRoots.contains(root)) Log::Warning("the folder is missing, its entries stay: " + root);
    for (const auto& root : m_missingRoots)
        if (!missing.contains(root)) Log::Info("the folder is back: " + root);
    m_missingRoots = std::move(missing);
}

}  // namespace zentrel
