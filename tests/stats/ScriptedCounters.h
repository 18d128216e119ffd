#pragma once

#include "zentrel/Session.h"

#include <functional>
#include <memory>
#include <string>

// Hosts that have nothing but counters. Every call may fail or take as long as a test wants.
struct ScriptedCounters : zentrel::Transport, std::enable_shared_from_this<ScriptedCounters> {
    zentrel::CounterTotals totals;
    std::uint32_t connectError = 0, readError = 0;
    std::string calls;
    std::function<void()> onConnect = [] {}, onRead = [] {};

    struct HostSession : zentrel::Session {
        explicit HostSession(std::shared_ptr<ScriptedCounters> all) : hosts(std::move(all)) {}
        std::string ServerName() const override { return {}; }
        bool IsLocal() const override { return false; }
        Done OpenKey(std::string_view) override { return {}; }
        Result<std::uint32_t> CountKeys(std::string_view, zentrel::View) override { return 0U; }
        Result<zentrel::KeyPage> ListKeys(std::string_view, zentrel::View, std::string_view,
                                          std::uint32_t) override
        {
            return zentrel::KeyPage{};
        }
        Result<std::optional<zentrel::Record>> GetData(std::string_view, zentrel::PropertyId) override
        {
            return std::nullopt;
        }
        Result<std::unique_ptr<zentrel::SubtreeStream>> OpenSubtree(std::string_view) override
        {
            return Fail(Code::NotSupported, "test");
        }
        Done DeleteEntry(std::string_view) override { return {}; }
        Done DeleteTree(std::string_view) override { return {}; }
        Result<std::string> GetCacheDir() override { return std::string(); }
        Result<std::unique_ptr<zentrel::CacheFileReader>> OpenCacheFile(std::string_view) override
        {
            return Fail(Code::NotSupported, "test");
        }
        Done ResetCounters() override { return {}; }
        Result<zentrel::CounterTotals> ReadCounters() override
        {
            hosts->calls += "read ";
            hosts->onRead();
            if (hosts->readError != 0) return Fail(hosts->readError, "test");
            return hosts->totals;
        }
        std::shared_ptr<ScriptedCounters> hosts;
    };

    std::string LocalName() const override { return "HOST"; }
    Result<std::shared_ptr<zentrel::Session>> Connect(std::string_view server) override
    {
        calls += "connect(" + std::string(server) + ") ";
        onConnect();
        if (connectError != 0) return Fail(connectError, "test");
        return std::shared_ptr<zentrel::Session>(std::make_shared<HostSession>(shared_from_this()));
    }
    Result<std::unique_ptr<zentrel::ServiceManager>> OpenServiceManager(std::string_view,
                                                                        std::uint32_t) override
    {
        return Fail(1722, "test");
    }
};
