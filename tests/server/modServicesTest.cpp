#include "server/modServices.h"

#include "server/ScriptedHosts.h"

#include <gtest/gtest.h>

using zentrel::ServiceState;

TEST(modServices, AsksWithTheRightsItNeedsAndClosesWhatItOpened)
{
    const struct {
        std::uint32_t manager, open, call;  // what goes wrong
        ServiceState state;
        std::string runs;
        std::uint32_t started;
    } cases[] = {
        {0, 0, 0, ServiceState::Stopped, "no", 0},
        {0, 0, 0, ServiceState::StartPending, "yes", 0},
        {0, 0, 0, ServiceState::StopPending, "no", 0},
        {0, 0, 0, ServiceState::Running, "yes", 0},
        {1722, 0, 0, ServiceState::Stopped, "yes", 1722},  // who is not there has the benefit of the doubt
        {5, 0, 0, ServiceState::Running, "5", 5},
        {0, 1722, 0, ServiceState::Running, "1722", 1722},
        {0, 997, 0, ServiceState::Running, "997", 997},
        {0, 0, 997, ServiceState::Running, "997", 0},  // it starts without waiting
        {0, 0, 1056, ServiceState::Running, "1056", 1056},
    };
    for (const auto& wanted : cases) {
        ScriptedHosts hosts;
        hosts.managerError = wanted.manager;
        hosts.serviceError = wanted.open;
        hosts.queryError = hosts.startError = wanted.call;
        hosts.state = wanted.state;
        const auto calls = [&](const std::string& rights, const std::string& call) {
            std::string expected = "manager(web,80000000) ";
            if (wanted.manager == 0) expected += "open(R," + rights + ") ";
            if (wanted.manager + wanted.open == 0) expected += call + " close-service ";
            return expected + (wanted.manager == 0 ? "close-manager" : "");
        };
        SCOPED_TRACE(calls("", "") + std::to_string(wanted.call));
        const auto runs = modServices::IsServiceRunning(hosts, "web", "R");
        EXPECT_EQ(runs ? (*runs ? "yes" : "no") : std::to_string(runs.error().code), wanted.runs);
        EXPECT_EQ(std::exchange(hosts.calls, {}), calls("4", "query"));
        const auto started = modServices::StartServiceByName(hosts, "web", "R");
        EXPECT_EQ(started ? 0 : started.error().code, wanted.started);
        EXPECT_EQ(hosts.calls, calls("a0000000", "start"));
    }
}
