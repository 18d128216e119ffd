#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// The text with %1 to %9 replaced by the values; what a value holds is not looked at again.
inline std::string FillIn(std::string_view text, std::initializer_list<std::string_view> values)
{
    std::string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto digit = i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '1') : values.size();
        if (text[i] == '%' && digit < values.size()) {
            filled += values.begin()[digit];
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}
