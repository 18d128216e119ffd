#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// What a published counter of the service is, for the performance data helper and for people.
struct CounterExplanation {
    std::string_view name;
    std::uint32_t type;     // see PdhType
    std::string_view text;  // one or two sentences
};

// Empty for a counter that this program does not know.
std::optional<CounterExplanation> ExplainCounter(std::string_view name);
