#pragma once

#include "platform/PerformanceData.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

// Machines that publish what a test wants, or fail with a code.
struct ScriptedSource : CounterSource {
    std::map<std::string, std::vector<PublishedCounter>> machines;
    std::map<std::string, std::uint32_t> errors;
    std::string calls;
    std::function<void()> onRead = [] {};

    Result<std::vector<PublishedCounter>> Read(const std::string& machine) override
    {
        calls += "read(" + machine + ") ";
        onRead();
        if (const auto error = errors[machine]; error != 0) return Fail(error, "test");
        return machines[machine];
    }
    void Leave() override { calls += "leave "; }
};
