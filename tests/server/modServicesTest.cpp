#include "server/modServices.h"

#include "server/ScriptedHosts.h"

#include <gtest/gtest.h>

using zentrel::ServiceState;

namespace {

std::string Text(const SystemError& error)
{
    return std::to_string(error.code) + " " + error.source + ": " + error.description;
}

}  // namespace

TEST(modServices, KnowsTheTextsOfItsCodes)
{
    const std::pair<std::uint32_t, const char*> cases[] = {
        {5, "5 Services: Access denied"},
        {123, "123 Services: The specified service name is invalid"},
        {1053,
         "1053 Services: The process for the service was started, but it did not check in with SC Manager"},
        {1054, "1054 Services: A thread could not be created for the service"},
        {1055, "1055 Services: The service database is locked"},
        {1056, "1056 Services: An instance of the service is already running"},
        {1058, "1058 Services: The service has been disabled"},
        {1060, "1060 Services: The specified service does not exist"},
        {1062, "1062 Services: "},
        {1068, "1068 Services: The service depends on another service that has failed to start"},
        {1069, "1069 Services: The service could not be logged on. This error occurs if the service was "
               "started from an account that does not have the 'Log on as a service' right"},
        {1075, "1075 Services: The service depends on a service that does not exist or has been marked for "
               "deletion"},
        {1722, "1722 Services: "},
    };
    for (const auto& [code, text] : cases)
        EXPECT_EQ(Text(modServices::RaiseServiceError(code).value()), text);
}

TEST(modServices, AsksWithTheRightsItNeedsAndClosesWhatItOpened)
{
    const std::string query = "manager(web,80000000) open(R,4) query close-service close-manager";
    const struct {
        std::uint32_t manager, open, query;
        ServiceState state;
        std::string outcome, calls;
    } cases[] = {
        {0, 0, 0, ServiceState::Stopped, "no", query},
        {0, 0, 0, ServiceState::StartPending, "yes", query},
        {0, 0, 0, ServiceState::StopPending, "no", query},
        {0, 0, 0, ServiceState::Running, "yes", query},
        {1722, 0, 0, ServiceState::Stopped, "yes", "manager(web,80000000) "},
        {5, 0, 0, ServiceState::Running, "5", "manager(web,80000000) "},
        {0, 1722, 0, ServiceState::Running, "1722", "manager(web,80000000) open(R,4) close-manager"},
        {0, 1060, 0, ServiceState::Running, "1060", "manager(web,80000000) open(R,4) close-manager"},
        {0, 0, 1722, ServiceState::Running, "1722", query},
    };
    for (const auto& wanted : cases) {
        ScriptedHosts hosts;
        hosts.managerError = wanted.manager;
        hosts.openError = wanted.open;
        hosts.queryError = wanted.query;
        hosts.state = wanted.state;
        const auto runs = modServices::IsServiceRunning(hosts, "web", "R");
        EXPECT_EQ(runs ? (*runs ? "yes" : "no") : std::to_string(runs.error().code), wanted.outcome);
        EXPECT_EQ(hosts.calls, wanted.calls);
    }
}

TEST(modServices, StartsWithoutWaiting)
{
    const std::string start = "manager(,80000000) open(R,a0000000) start close-service close-manager";
    const struct {
        std::uint32_t manager, open, start, outcome;
        std::string calls;
    } cases[] = {
        {0, 0, 0, 0, start},
        {0, 0, 997, 0, start},
        {0, 0, 1056, 1056, start},
        {0, 0, 1058, 1058, start},
        {1722, 0, 0, 1722, "manager(,80000000) "},
        {0, 997, 0, 997, "manager(,80000000) open(R,a0000000) close-manager"},
    };
    for (const auto& wanted : cases) {
        ScriptedHosts hosts;
        hosts.managerError = wanted.manager;
        hosts.openError = wanted.open;
        hosts.startError = wanted.start;
        const auto started = modServices::StartServiceByName(hosts, "", "R");
        EXPECT_EQ(started ? 0 : started.error().code, wanted.outcome);
        EXPECT_EQ(hosts.calls, wanted.calls);
    }
}
