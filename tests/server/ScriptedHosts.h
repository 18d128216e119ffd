#pragma once

#include "support/ScriptedTransport.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
#include <string>

struct ScriptedSite {
    std::string key;
    std::string comment;
    std::uint32_t state = 2;
    std::vector<std::string> bindings = {};
    std::uint32_t commentError = 0;
};

struct ScriptedHost {
    std::vector<ScriptedSite> sites;
    bool isLocal = false;
    std::string ownName;  // empty: what it is called by
    std::uint32_t enumError = 0;
    std::uint32_t listError = 0;  // its keys are counted but not told
};

// Hosts that have the sites and services which a test wants, and that fail as it wants.
class ScriptedHosts : public ScriptedTransport {
public:
    std::map<std::string, ScriptedHost, std::less<>> hosts;
    std::string connects;             // the names asked for, each with a "|"
    std::function<void()> onConnect;  // while a connection is waited for

    std::uint32_t managerError = 0, serviceError = 0, startError = 0;
    zentrel::ServiceState state = zentrel::ServiceState::Running;
    std::string calls;  // to the services of a host, in their order

    std::string LocalName() const override { return "HOST"; }
    Result<std::shared_ptr<zentrel::Session>> Connect(std::string_view server) override
    {
        connects += std::string(server) + "|";
        if (onConnect) onConnect();
        if (auto silent = ScriptedTransport::Connect(server); !silent) return silent;
        const auto host = hosts.find(server);
        if (host == hosts.end()) return Fail(Code::ServerUnavailable, "test");
        return std::shared_ptr<zentrel::Session>(
            std::make_shared<Session>(std::string(server), host->second));
    }

    Result<std::unique_ptr<zentrel::ServiceManager>> OpenServiceManager(std::string_view machine,
                                                                        std::uint32_t access) override
    {
        calls += "manager(" + std::string(machine) + "," + Hex(access) + ") ";
        if (managerError != 0) return Fail(managerError, "test");
        return std::unique_ptr<zentrel::ServiceManager>(std::make_unique<Manager>(*this));
    }

private:
    static std::string Hex(std::uint32_t value)
    {
        char text[8];
        return {text, std::to_chars(text, text + 8, value, 16).ptr};
    }

    struct Service : zentrel::HostService {
        explicit Service(ScriptedHosts& hosts) : script(hosts) {}
        ~Service() override { script.calls += "close-service "; }
        Result<zentrel::ServiceState> QueryStatus() override
        {
            script.calls += "query ";
            return script.state;
        }
        Done Start() override
        {
            script.calls += "start ";
            if (script.startError != 0) return Fail(script.startError, "test");
            return {};
        }
        Done Stop() override { return {}; }
        ScriptedHosts& script;
    };

    struct Manager : zentrel::ServiceManager {
        explicit Manager(ScriptedHosts& hosts) : script(hosts) {}
        ~Manager() override { script.calls += "close-manager"; }
        Result<std::unique_ptr<zentrel::HostService>> OpenService(std::string_view name,
                                                                  std::uint32_t access) override
        {
            script.calls += "open(" + std::string(name) + "," + Hex(access) + ") ";
            if (script.serviceError != 0) return Fail(script.serviceError, "test");
            return std::unique_ptr<zentrel::HostService>(std::make_unique<Service>(script));
        }
        Result<std::vector<zentrel::ServiceInfo>> ListServices() override
        {
            return std::vector<zentrel::ServiceInfo>();
        }
        ScriptedHosts& script;
    };

    struct Session : ScriptedTransport::ScriptedSession {
        Session(std::string called, const ScriptedHost& scripted)
            : ScriptedSession(nullptr),
              name(std::move(called)),
              host(scripted)
        {
        }

        std::string ServerName() const override { return host.ownName.empty() ? name : host.ownName; }
        bool IsLocal() const override { return host.isLocal; }
        Done OpenKey(std::string_view) override
        {
            if (host.listError != 0) return Fail(host.listError, "test");
            return {};
        }
        Result<std::uint32_t> CountKeys(std::string_view, zentrel::View) override
        {
            if (host.enumError != 0) return Fail(host.enumError, "test");
            return static_cast<std::uint32_t>(host.sites.size());
        }
        Result<zentrel::KeyPage> ListKeys(std::string_view, zentrel::View, std::string_view after,
                                          std::uint32_t) override
        {
            zentrel::KeyPage page;
            if (host.listError != 0) return Fail(host.listError, "test");
            if (!after.empty()) return page;
            for (const auto& site : host.sites) page.names.push_back(site.key);
            return page;
        }
        Result<std::optional<zentrel::Record>> GetData(std::string_view path, zentrel::PropertyId id) override
        {
            const auto key = path.substr(path.rfind('/') + 1);
            const auto site = std::find_if(host.sites.begin(), host.sites.end(),
                                           [key](const ScriptedSite& one) { return one.key == key; });
            if (site == host.sites.end()) return Fail(Code::FileNotFound, "test");
            if (id == zentrel::Prop::ServerComment && site->commentError != 0)
                return Fail(site->commentError, "test");
            zentrel::PropertySet properties;
            properties.SetText(zentrel::Prop::ServerComment, site->comment);
            properties.SetNumber(zentrel::Prop::ServerState, site->state);
            properties.SetTextList(zentrel::Prop::ServerBindings, site->bindings);
            return zentrel::Record(*properties.Find(id));
        }

        const std::string name;
        const ScriptedHost host;  // as it was when it was connected
    };
};
