#pragma once

#include "settings/Settings.h"

#include <cstdint>
#include <optional>
#include <string_view>

// What the program does when it starts.
enum class StartOption { LocalServer = 0, LastServer = 1, SelectDialog = 2 };

// It is kept as a pair of settings: a server to start with, and whether to ask for one first.
StartOption StartOptionOf(const Settings& settings);
void SetStartOption(Settings& settings, StartOption option);

// How many servers to remember, as a person types it (see ParseInteger). Empty for a text that is no whole
// number and for a number outside 0 to 200.
std::optional<std::int32_t> ParseRememberServers(std::string_view text);
