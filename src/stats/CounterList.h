#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// A counter that the program shows: where it is, without a machine, and what the panel calls it.
struct CounterRow {
    std::string path;
    std::string label;  // empty: the last element of the path
};

using CounterList = std::vector<CounterRow>;

// Path and label in turn. A path without a label after it is left out.
CounterList PairRows(std::span<const std::string_view> texts);

// A counter's label, name or explanation as the user reads it; known by is each in English.
std::string CounterWords(const std::string& english);

// The 19 counters of the performance summary, in their order.
CounterList MakeCounterList();
