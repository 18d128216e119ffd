#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

// The intervals of the auto-refresh menu's items in milliseconds. Item 3 is a separator, 0 means no refresh.
inline constexpr std::array<std::int32_t, 8> kRefreshIntervals{1000, 5000, 10000, -1, 0, 0, 0, 0};

// The first item with this interval, if there is one.
constexpr std::optional<std::size_t> RefreshItemOf(std::int32_t interval)
{
    const auto* const found = std::find(kRefreshIntervals.begin(), kRefreshIntervals.end(), interval);
    if (found == kRefreshIntervals.end()) return std::nullopt;
    return static_cast<std::size_t>(found - kRefreshIntervals.begin());
}
