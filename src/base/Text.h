#pragma once

#include <string>
#include <string_view>

// Text in this program is UTF-8 in std::string; texts from outside may hold any bytes.

bool IsValidUtf8(std::string_view text);

// Lower case of every letter that has one, whatever the user's language; bytes that are not UTF-8 stay.
std::string LowerCase(std::string_view text);
void AppendLowerCase(std::string& out, std::string_view text);

// Orders texts as a person reads a list: without regard to the case of ASCII letters, then by code point;
// texts that differ only in case are told apart by their bytes. Negative, 0 or positive.
int CompareText(std::string_view left, std::string_view right);
int CompareFolded(std::string_view left, std::string_view right);  // the same; 0 when only case differs

// The text without leading and trailing blanks (0x20).
constexpr std::string_view TrimBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The text without one leading and one trailing "/".
constexpr std::string_view TrimSlashes(std::string_view path)
{
    if (path.starts_with('/')) path.remove_prefix(1);
    if (path.ends_with('/')) path.remove_suffix(1);
    return path;
}
