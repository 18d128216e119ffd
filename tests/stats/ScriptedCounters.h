#pragma once

#include "support/ScriptedTransport.h"

#include <string>

// Hosts that have nothing but counters. Every call may fail or take as long as a test wants.
struct ScriptedCounters : ScriptedTransport {
    ScriptedCounters()
    {
        counters = [this]() -> Result<zentrel::CounterTotals> {
            calls += "read ";
            onRead();
            if (readError != 0) return Fail(readError, "test");
            return totals;
        };
    }
    Result<std::shared_ptr<zentrel::Session>> Connect(std::string_view server) override
    {
        calls += "connect(" + std::string(server) + ") ";
        onConnect();
        if (connectError != 0) return Fail(connectError, "test");
        return ScriptedTransport::Connect(server);
    }

    zentrel::CounterTotals totals;
    std::uint32_t connectError = 0, readError = 0;
    std::string calls;
    std::function<void()> onConnect = [] {}, onRead = [] {};
};
