#include "zentrel/daemon/Daemon.h"

#include "base/Text.h"
#include "zentrel/DataFolder.h"
#include "zentrel/MetricsText.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/daemon/HostServices.h"
#include "zentrel/daemon/Log.h"
#include "zentrel/daemon/Notify.h"
#include "zentrel/daemon/Wakeups.h"
#include "zentrel/remote/ListenSocket.h"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace zentrel {

namespace {

constexpr auto kGrace = std::chrono::seconds(3);

std::string HostName()
{
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0 || name[0] == '\0') return "localhost";
    return name.data();
}

Result<DaemonConfig> ReadIfNamed(const std::filesystem::path& file)
{
    if (file.empty()) return DaemonConfig();
    return ReadDaemonConfig(file);
}

Done CheckServices(ServiceTable& table, const ServiceTable::Setups& setups)
{
    for (const auto& setup : setups)
        if (CompareFolded(setup.first, kDaemonService) == 0)
            return Fail(Code::InvalidData, "Config", "The service \"Zentrel\" is this program itself.");
    return table.Configure(setups, true);
}

// Such a service cannot start as long as that is so; the administrator should know before somebody tries.
void TellMissingNeeds(const ServiceTable& table, const ServiceTable::Setups& setups)
{
    for (const auto& [name, setup] : setups)
        for (const auto& need : setup.needs)
            if (!table.Query(need))
                Log::Warning("the service " + name + " needs " + need + ", which there is none of");
}

}  // namespace

Done Daemon::Check(const DaemonOptions& options)
{
    const auto config = ReadDaemonConfig(options.config);
    if (!config) return Fail(config.error());
    const auto services = MakeHostServices(nullptr);
    TellMissingNeeds(*services, config->services);
    return CheckServices(*services, config->services);
}

Result<Daemon> Daemon::Start(const DaemonOptions& options)
{
    Daemon daemon(options);
    auto config = ReadIfNamed(options.config);
    if (!config) return Fail(config.error());
    daemon.m_config = std::move(*config);
    if (auto opened = daemon.Open(); !opened) return Fail(opened.error());
    if (options.once) return daemon;
    if (auto offered = daemon.Offer(); !offered) return Fail(offered.error());
    return daemon;
}

Done Daemon::Open()
{
    for (const auto& folder : {m_config.data, DefaultDataFolder()})
        if (m_options.data.empty()) m_options.data = folder;
    if (m_options.data.empty())
        return Fail(Code::InvalidParameter, "Daemon", "There is no home folder; --data is needed.");
    auto service = Service::Open(m_options.data, Service::Role::Writer);
    if (!service) return Fail(service.error());
    m_service = std::move(*service);
    Log::Info("opened " + m_options.data.string());
    return {};
}

Done Daemon::Offer()
{
    m_services = MakeHostServices(m_service);
    if (auto checked = CheckServices(*m_services, m_config.services); !checked) return checked;
    if (auto configured = m_services->Configure(m_config.services); !configured) return configured;
    TellMissingNeeds(*m_services, m_config.services);
    for (const auto& [name, error] : m_services->StartAutomatic())
        Log::Error("the service " + name + " did not start", error);
    const auto settings = AdminSettings();
    auto admin = AdminServer::Start(m_service, m_services, settings);
    if (!admin) return Fail(admin.error());
    m_admin = std::move(*admin);
    for (const auto& listener : settings.listeners)
        Log::Info("listens at " + (listener.path.empty()
                                       ? listener.address + " port " + std::to_string(listener.port)
                                       : listener.path.string()));
    return OfferMetrics();
}

Done Daemon::OfferMetrics()
{
    const auto& place = Metrics();
    if (place.address.empty()) return {};
    auto listener = ListenTcp(place.address, place.port);
    if (!listener) return Fail(listener.error());
    const auto port = PortOf(*listener);
    const auto text = [service = m_service]() -> Result<std::string> {
        const auto totals = service->Counters();
        if (!totals) return Fail(totals.error());
        // What is told must not be lost again. Where it cannot be stored, the service has the error.
        static_cast<void>(service->Flush());
        return MetricsText(*totals);
    };
    auto metrics = MetricsServer::Start(std::move(*listener), text);
    if (!metrics) return Fail(metrics.error());
    m_metrics = std::move(*metrics);
    Log::Info("offers metrics at " + place.address + " port " + std::to_string(port));
    return {};
}

AdminOptions Daemon::AdminSettings() const
{
    auto settings = m_config.admin;
    settings.serverName = HostName();
    AdminListener local;
    local.path = std::filesystem::absolute(m_options.data) / "admin.sock";
    if (m_config.hasLocal) return settings;
    if (CheckListener(local))
        settings.listeners.push_back(std::move(local));
    else
        Log::Warning("the name is too long for a socket: " + local.path.string());
    return settings;
}

std::chrono::seconds Daemon::Interval() const
{
    constexpr std::chrono::seconds kUsual{60};
    return m_options.interval.value_or(m_config.interval.value_or(kUsual));
}

Done Daemon::Run(StopSignals& signals, Wakeups& wakeups)
{
    if (m_options.once) return RunRound(signals);
    NotifyManager("READY=1");
    auto cause = Wakeups::Cause::Timer;
    while (cause != Wakeups::Cause::Stop) {
        if (cause == Wakeups::Cause::Reload) Reload();
        if (cause == Wakeups::Cause::Timer) {
            if (auto round = RunRound(signals); !round) Log::Error("the round was given up", round.error());
        }
        wakeups.SetTimer(Interval());
        cause = wakeups.Wait(signals);
    }
    NotifyManager("STOPPING=1");
    m_metrics.reset();
    m_admin->Stop(kGrace);
    return m_service->Flush();
}

void Daemon::Reload()
{
    if (m_options.config.empty()) return Log::Info("there is no configuration file to read again");
    NotifyManager("RELOADING=1\n" + MonotonicTimeLine());
    const auto lock = m_services->LockDatabase();
    auto config = ReadDaemonConfig(m_options.config);
    const auto isComplete = config ? TakeOver(std::move(*config)) : Result<bool>(Fail(config.error()));
    if (!isComplete)
        Log::Error("the configuration stays as it was", isComplete.error());
    else
        Log::Info("the configuration was read again");
    if (isComplete && !*isComplete)
        Log::Warning(
            "other listeners, another place for metrics or another data folder are used after a restart");
    NotifyManager("READY=1");
}

Result<bool> Daemon::TakeOver(DaemonConfig config)
{
    if (auto checked = CheckServices(*m_services, config.services); !checked) return Fail(checked.error());
    const bool isSamePlace = config.data == m_config.data && config.metrics == m_config.metrics;
    std::swap(m_config, config);
    const auto isComplete = m_admin->Reload(AdminSettings());
    if (!isComplete) {
        std::swap(m_config, config);
        return isComplete;
    }
    TellMissingNeeds(*m_services, m_config.services);
    if (auto configured = m_services->Configure(m_config.services); !configured)
        return Fail(configured.error());
    return *isComplete && isSamePlace;
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
