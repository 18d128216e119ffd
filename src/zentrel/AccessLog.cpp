#include "zentrel/AccessLog.h"

#include <algorithm>
#include <optional>

namespace zentrel {

namespace {

constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool AllDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

int HexValue(char c)
{
    if (IsDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// "10/Oct/2000:13:55:36 -0700": digits, letters and marks where they belong.
bool LooksLikeDate(std::string_view text)
{
    constexpr std::string_view kShape = "00/aaa/0000:00:00:00 +0000";
    if (text.size() != kShape.size()) return false;
    for (std::size_t i = 0; i < kShape.size(); ++i) {
        const char c = text[i];
        const bool fits = kShape[i] == '0'   ? IsDigit(c)
                          : kShape[i] == 'a' ? (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')
                          : kShape[i] == '+' ? c == '+' || c == '-'
                                             : c == kShape[i];
        if (!fits) return false;
    }
    return true;
}

// Takes host, identity, user and date off the line. A user's name may hold spaces and brackets, so the date
// is known by its shape.
bool TakeClient(std::string_view& line)
{
    constexpr std::size_t kDate = 26;
    for (auto open = line.find(" ["); open != std::string_view::npos; open = line.find(" [", open + 1)) {
        const auto head = line.substr(0, open);
        if (!LooksLikeDate(line.substr(open + 2, kDate))) continue;
        if (line.substr(open + 2 + kDate, 3) != "] \"" || std::count(head.begin(), head.end(), ' ') < 2)
            continue;
        line.remove_prefix(open + 2 + kDate + 3);
        return true;
    }
    return false;
}

// Undoes the escape whose backslash stands at the front of `text`; empty when there is no such escape.
std::optional<char> TakeEscape(std::string_view& text)
{
    constexpr std::string_view kLetters = "\"\\/bfnrtv";
    constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t\v";
    if (text.size() >= 4 && text[1] == 'x' && HexValue(text[2]) >= 0 && HexValue(text[3]) >= 0) {
        const int value = HexValue(text[2]) * 16 + HexValue(text[3]);
        text.remove_prefix(4);
        return static_cast<char>(value);
    }
    const auto letter = text.size() < 2 ? std::string_view::npos : kLetters.find(text[1]);
    if (letter == std::string_view::npos) return std::nullopt;
    text.remove_prefix(2);
    return kMeanings[letter];
}

// Takes a quoted text, whose opening quote is gone already, and its closing quote.
std::optional<std::string> TakeQuoted(std::string_view& line)
{
    std::string text;
    while (!line.empty() && line.front() != '"') {
        if (line.front() != '\\') {
            text += line.front();
            line.remove_prefix(1);
        } else if (const auto meant = TakeEscape(line)) {
            text += *meant;
        } else {
            return std::nullopt;
        }
    }
    if (line.empty()) return std::nullopt;
    line.remove_prefix(1);
    return text;
}

// The line's end: " 200 2326", with anything behind it.
bool EndsInStatusAndBytes(std::string_view rest)
{
    if (!rest.starts_with(' ')) return false;
    rest.remove_prefix(1);
    const auto status = rest.substr(0, rest.find(' '));
    if (status.size() != 3 || !AllDigits(status) || rest.size() < 5) return false;
    rest.remove_prefix(4);
    const auto bytes = rest.substr(0, rest.find(' '));
    return bytes == "-" || AllDigits(bytes);
}

bool IsMethod(std::string_view text)
{
    const auto fits = [](char c) { return (c >= 'A' && c <= 'Z') || c == '-' || c == '_'; };
    return !text.empty() && std::all_of(text.begin(), text.end(), fits);
}

// "/path" of "http://host/path"; the text itself when it is no such address.
std::string_view WithoutHost(std::string_view target)
{
    const auto scheme = target.find("://");
    const auto slash = target.find('/');
    if (scheme == std::string_view::npos || slash != scheme + 1) return target;
    const auto path = target.find_first_of("/?", scheme + 3);
    return path == std::string_view::npos ? std::string_view("/") : target.substr(path);
}

LogLine ParseRequest(std::string_view request)
{
    if (request == "-") return {LogLine::Kind::Other, {}};
    const auto methodEnd = request.find(' ');
    if (methodEnd == std::string_view::npos) return {};
    const auto method = request.substr(0, methodEnd);
    auto target = request.substr(methodEnd + 1);
    if (const auto version = target.rfind(' '); version != std::string_view::npos) {
        if (!target.substr(version + 1).starts_with("HTTP/")) return {};
        target = target.substr(0, version);
    }
    if (!IsMethod(method) || target.empty() || target.find(' ') != std::string_view::npos) return {};
    if (method != "GET" && method != "HEAD") return {LogLine::Kind::Other, {}};
    target = WithoutHost(target);
    if (!target.starts_with('/')) return {};
    return {LogLine::Kind::Fetch, std::string(target)};
}

}  // namespace

LogLine ParseLogLine(std::string_view line)
{
    if (!TakeClient(line)) return {};
    const auto request = TakeQuoted(line);
    if (!request || !EndsInStatusAndBytes(line)) return {};
    return ParseRequest(*request);
}

}  // namespace zentrel
