#pragma once

#include "platform/PerformanceData.h"
#include "zentrel/Session.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

// The counters that the service publishes: on this machine, and on every other that the transport reaches.
// A machine is asked over a session of its own, which stays until Leave; one call of the server brings all
// counters. It fails as the session does: AccessDenied while the host lets nobody read its counters from
// afar, ServerUnavailable, Timeout.
//
// How long a reading blocks is up to the transport's deadlines: give one whose connections wait for
// kConnecting and whose reads for kReading at most, and no refresh takes longer than a second. (The first
// reading of a machine takes one and a half at most.) A host that kept the caller waiting in vain is left
// alone for kRest: readings fail at once meanwhile.
class ZentrelCounters : public CounterSource {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds kConnecting{1'000};
    static constexpr std::chrono::milliseconds kReading{500};
    static constexpr std::chrono::seconds kRest{10};

    explicit ZentrelCounters(std::shared_ptr<zentrel::Transport> transport,
                             std::function<Clock::time_point()> now = Clock::now);

    Result<std::vector<PublishedCounter>> Read(const std::string& machine) override;
    void Leave() override { m_machines.clear(); }

private:
    struct Machine {
        std::shared_ptr<zentrel::Session> session;
        bool wasConnected = false;
        Clock::time_point restsUntil = {};
        std::optional<SystemError> lastFailure = {};
    };

    Result<zentrel::CounterTotals> ReadTotals(const std::string& name, Machine& machine);
    Done Connect(const std::string& name, Machine& machine);
    SystemError Remember(Machine& machine, SystemError error, Clock::time_point begun) const;

    std::shared_ptr<zentrel::Transport> m_transport;
    std::function<Clock::time_point()> m_now;
    std::map<std::string, std::shared_ptr<Machine>> m_machines;
};
