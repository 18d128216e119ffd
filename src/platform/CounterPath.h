#pragma once

#include "platform/PdhStatus.h"

#include <cstdint>
#include <string>
#include <string_view>

// The parts of a counter's path: "\\machine\object(parent/instance#index)\counter". All but object and
// counter may be left out; without a machine it is this one.
struct CounterPath {
    std::string machine, object, parentInstance, instance;
    std::uint32_t instanceIndex = 0;
    std::string counter;
};

// Fails with Pdh::InvalidArgument (no path), BadPath, BadInstance (no end or no name between the
// parentheses) or NoCounterName, and leaves `path` in any state.
PdhStatus ParseCounterPath(std::string_view text, CounterPath& path);
