#pragma once

#include <string>
#include <string_view>

// How the user writes numbers and dates. All texts are UTF-8; the separators are never empty.
struct UserLocale {
    std::string decimalSeparator = ".";
    std::string timeSeparator = ":";
    std::string shortDate = "%Y-%m-%d";  // a strftime pattern

    friend bool operator==(const UserLocale&, const UserLocale&) = default;
};

// Reads the locale of that name, "" being the one that the environment asks for. Whatever cannot be had or
// is no UTF-8 keeps its default. The C locale states no preference about dates: it keeps the default too.
UserLocale ReadUserLocale(const char* name = "");

// What stands between hours, minutes and seconds in a strftime time pattern; ":" when the pattern names the
// parts in words instead of separating them.
std::string TimeSeparatorOf(std::string_view timeFormat);
