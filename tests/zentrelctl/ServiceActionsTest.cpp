#include "zentrel/ctl/ServiceActions.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using zentrel::ServiceInfo;
using zentrel::ServiceStart;
using zentrel::ServiceState;
namespace Access = zentrel::ServiceAccess;

// A host with one service, which is in the states of the script one after the other; the last one stays.
class ScriptedHost : public zentrel::ServiceManager {
public:
    std::vector<ServiceState> states;
    std::uint32_t openCode = 0;  // what these fail with, if not 0
    std::uint32_t changeCode = 0;
    std::uint32_t access = 0;
    std::string calls;

    Result<std::unique_ptr<zentrel::HostService>> OpenService(std::string_view, std::uint32_t wanted) override
    {
        access = wanted;
        if (openCode != 0) return Fail(openCode, "test");
        return std::make_unique<Service>(*this);
    }
    Result<std::vector<ServiceInfo>> ListServices() override
    {
        return std::vector<ServiceInfo>{{"Remote\x1B", ServiceState::Running, ServiceStart::Automatic},
                                        {"B", ServiceState::Stopped, ServiceStart::Disabled}};
    }

private:
    class Service : public zentrel::HostService {
    public:
        explicit Service(ScriptedHost& host) : m_host(host) {}
        Result<ServiceState> QueryStatus() override
        {
            const auto state = m_host.states.front();
            if (m_host.states.size() > 1) m_host.states.erase(m_host.states.begin());
            return state;
        }
        Done Start() override { return Change("start"); }
        Done Stop() override { return Change("stop"); }

    private:
        Done Change(const char* call)
        {
            m_host.calls += call;
            if (m_host.changeCode != 0) return Fail(m_host.changeCode, "test");
            return {};
        }
        ScriptedHost& m_host;
    };
};

struct Case {
    bool start;
    std::uint32_t openCode, changeCode;
    std::vector<ServiceState> states;
    std::uint32_t code;  // 0: it succeeds
    std::string printed;
};

}  // namespace

TEST(ServiceActions, StartAndStopWaitForTheEndAndTellHowItWas)
{
    using enum ServiceState;
    for (const auto& [start, openCode, changeCode, states, code, printed] :
         std::vector<Case>{{true, 0, 0, {Running}, 0, "S: running\n"},
                           {true, 0, 0, {StartPending, StartPending, Running}, 0, "S: running\n"},
                           {true, 0, Code::IoPending, {StartPending, Running}, 0, "S: running\n"},
                           {true, 0, 0, {StartPending, Stopped}, Code::ServiceNotActive, "S: stopped\n"},
                           {true, 0, 0, {StartPending}, Code::Timeout, ""},
                           {true, 0, Code::ServiceAlreadyRunning, {Running}, Code::ServiceAlreadyRunning, ""},
                           {true, Code::AccessDenied, 0, {Stopped}, Code::AccessDenied, ""},
                           {false, 0, 0, {StopPending, Stopped}, 0, "S: stopped\n"},
                           {false, 0, Code::ServiceNotActive, {Stopped}, Code::ServiceNotActive, ""}}) {
        ScriptedHost host;
        host.states = states;
        host.openCode = openCode;
        host.changeCode = changeCode;
        std::ostringstream out;
        const auto act = start ? zentrel::StartService : zentrel::StopService;
        const auto done = act(out, host, "S", std::chrono::milliseconds(120));
        EXPECT_EQ(done ? 0 : done.error().code, code);
        EXPECT_EQ(out.str(), printed);
        EXPECT_EQ(host.calls, openCode != 0 ? "" : start ? "start" : "stop");
        EXPECT_EQ(host.access, (start ? Access::Start : Access::Stop) | Access::QueryStatus);
    }
}

TEST(ServiceActions, LookingAsksForNoMoreThanItNeeds)
{
    ScriptedHost host;
    host.states = {ServiceState::StopPending};
    std::ostringstream out;
    EXPECT_TRUE(zentrel::QueryService(out, host, "S"));
    EXPECT_EQ(host.access, Access::QueryStatus);
    EXPECT_TRUE(zentrel::ListServices(out, host, false));
    EXPECT_EQ(out.str(), "S: stopping\nSTATE    START      NAME\nrunning  automatic  Remote\\x1b\n"
                         "stopped  disabled   B\n");
    std::ostringstream json;
    EXPECT_TRUE(zentrel::ListServices(json, host, true));
    EXPECT_NE(json.str().find(R"("state": "running",)"), std::string::npos) << json.str();
}
