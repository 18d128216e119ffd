#pragma once

#include "base/Text.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

// A whole number as a person writes it: decimal digits with an optional sign and blanks around them. Empty
// for every other text ("ten", "1.5", "1e2", nothing) and for what 32 bits cannot hold.
inline std::optional<std::int32_t> ParseInteger(std::string_view text)
{
    text = TrimBlanks(text);
    // A plus is as good as none, but not before another sign.
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}
