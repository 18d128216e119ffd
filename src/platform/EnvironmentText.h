#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The text with each %NAME% replaced by the value of that environment variable. What is no reference, or
// names no variable, stays with its percent signs; the second of these may begin the next reference.
// References that would make the text longer than kMostExpandedText stay too.
std::string ExpandEnvironmentText(std::string_view text);

inline constexpr std::size_t kMostExpandedText = 32U << 20U;  // bytes
