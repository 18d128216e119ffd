#include "zentrel/ctl/ServiceActions.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using zentrel::ServiceState;

// A host with one service, which is in the states of the script one after the other; the last one stays.
class ScriptedHost : public zentrel::ServiceManager {
public:
    std::vector<ServiceState> states;
    std::uint32_t changeCode = 0;  // what a change fails with, if not 0

    Result<std::unique_ptr<zentrel::HostService>> OpenService(std::string_view, std::uint32_t) override
    {
        return std::make_unique<Service>(*this);
    }
    Result<std::vector<zentrel::ServiceInfo>> ListServices() override
    {
        return std::vector<zentrel::ServiceInfo>();
    }

private:
    struct Service : zentrel::HostService {
        explicit Service(ScriptedHost& scripted) : host(scripted) {}
        Result<ServiceState> QueryStatus() override
        {
            const auto state = host.states.front();
            if (host.states.size() > 1) host.states.erase(host.states.begin());
            return state;
        }
        Done Start() override
        {
            if (host.changeCode != 0) return Fail(host.changeCode, "test");
            return {};
        }
        Done Stop() override { return Start(); }
        ScriptedHost& host;
    };
};

}  // namespace

TEST(ServiceActions, StartAndStopWaitForTheEndAndTellHowItWas)
{
    using enum ServiceState;
    const struct {
        bool start;
        std::uint32_t changeCode;
        std::vector<ServiceState> states;
        std::uint32_t code;  // 0: it succeeds
        std::string printed;
    } cases[] = {
        {true, 0, {StartPending, StartPending, Running}, 0, "S: running\n"},
        {true, Code::IoPending, {StartPending, Running}, 0, "S: running\n"},
        {true, 0, {StartPending, Stopped}, Code::ServiceNotActive, "S: stopped\n"},
        {true, 0, {StartPending}, Code::Timeout, ""},
        {false, 0, {StopPending, Stopped}, 0, "S: stopped\n"},
        {false, Code::IoPending, {StopPending}, Code::IoPending, ""},
    };
    for (const auto& [start, changeCode, states, code, printed] : cases) {
        ScriptedHost host;
        host.states = states;
        host.changeCode = changeCode;
        std::ostringstream out;
        const auto act = start ? zentrel::StartService : zentrel::StopService;
        const auto done = act(out, host, "S", std::chrono::milliseconds(120));
        EXPECT_EQ(done ? 0 : done.error().code, code);
        EXPECT_EQ(out.str(), printed);
    }
}
