#pragma once

#include "settings/Settings.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// How many servers can be remembered: 0 to this.
inline constexpr std::int32_t kMostRememberServers = 200;

constexpr bool IsRememberServers(std::int32_t number)
{
    return number >= 0 && number <= kMostRememberServers;
}

// The user chose a server from a box with these entries: it becomes the last server and the first of those
// remembered; the box's other entries follow in their order, at most RememberServers names in all. When
// that is 0, the remembered servers stay as they are.
void RememberServer(Settings& settings, std::string_view chosen, std::span<const std::string> boxEntries);
