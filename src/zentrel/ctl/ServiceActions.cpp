#include "zentrel/ctl/ServiceActions.h"

#include "zentrel/ctl/Json.h"
#include "zentrel/ctl/Table.h"

#include "zentrel/Printable.h"

#include <thread>

namespace zentrel {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{50};

std::string_view StartName(ServiceStart start)
{
    switch (start) {
    case ServiceStart::Automatic: return "automatic";
    case ServiceStart::Manual: return "manual";
    case ServiceStart::Disabled: return "disabled";
    }
    return "unknown";
}

void WriteState(std::ostream& out, const std::string& name, ServiceState state)
{
    out << Printable(name) << ": " << StateName(state) << '\n';
}

void WriteText(std::ostream& out, const std::vector<ServiceInfo>& services)
{
    std::vector<std::vector<std::string>> rows{{"STATE", "START", "NAME"}};
    for (const auto& info : services)
        rows.push_back({std::string(StateName(info.state)), std::string(StartName(info.start)), info.name});
    WriteTable(out, rows);
}

void WriteJson(std::ostream& out, const std::vector<ServiceInfo>& services)
{
    JsonWriter json(out);
    json.BeginArray();
    for (const auto& info : services) {
        json.BeginObject().Key("name").Text(info.name).Key("state").Text(StateName(info.state));
        json.Key("start").Text(StartName(info.start)).EndObject();
    }
    json.EndArray();
}

// Until the service is in neither of the states that lead somewhere else.
Result<ServiceState> WaitUntilSettled(HostService& service, const std::string& name,
                                      std::chrono::milliseconds patience)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        const auto state = service.QueryStatus();
        if (!state) return Fail(state.error());
        if (*state != ServiceState::StartPending && *state != ServiceState::StopPending) return *state;
        if (std::chrono::steady_clock::now() >= end)
            return Fail(Code::Timeout, "zentrelctl",
                        name + " is still " + std::string(StateName(*state)) +
                            "; it was not waited for longer.");
        std::this_thread::sleep_for(kBetweenLooks);
    }
}

Done Finish(std::ostream& out, HostService& service, const std::string& name, ServiceState wanted,
            std::chrono::milliseconds patience)
{
    const auto state = WaitUntilSettled(service, name, patience);
    if (!state) return Fail(state.error());
    WriteState(out, name, *state);
    if (*state == wanted) return {};
    return Fail(Code::ServiceNotActive, "zentrelctl", name + " did not stay as it was told to be.");
}

}  // namespace

std::string_view StateName(ServiceState state)
{
    switch (state) {
    case ServiceState::Stopped: return "stopped";
    case ServiceState::StartPending: return "starting";
    case ServiceState::StopPending: return "stopping";
    case ServiceState::Running: return "running";
    }
    return "unknown";
}

Done ListServices(std::ostream& out, ServiceManager& manager, bool asJson)
{
    const auto services = manager.ListServices();
    if (!services) return Fail(services.error());
    asJson ? WriteJson(out, *services) : WriteText(out, *services);
    return {};
}

Done QueryService(std::ostream& out, ServiceManager& manager, const std::string& name)
{
    const auto service = manager.OpenService(name, ServiceAccess::QueryStatus);
    if (!service) return Fail(service.error());
    const auto state = (*service)->QueryStatus();
    if (!state) return Fail(state.error());
    WriteState(out, name, *state);
    return {};
}

Done StartService(std::ostream& out, ServiceManager& manager, const std::string& name,
                  std::chrono::milliseconds patience)
{
    const auto service = manager.OpenService(name, ServiceAccess::Start | ServiceAccess::QueryStatus);
    if (!service) return Fail(service.error());
    const auto started = (*service)->Start();
    // Somebody else's start is under way: that one is waited for.
    if (!started && !started.error().Is(Code::IoPending)) return started;
    return Finish(out, **service, name, ServiceState::Running, patience);
}

Done StopService(std::ostream& out, ServiceManager& manager, const std::string& name,
                 std::chrono::milliseconds patience)
{
    const auto service = manager.OpenService(name, ServiceAccess::Stop | ServiceAccess::QueryStatus);
    if (!service) return Fail(service.error());
    if (auto stopped = (*service)->Stop(); !stopped) return stopped;
    return Finish(out, **service, name, ServiceState::Stopped, patience);
}

}  // namespace zentrel
