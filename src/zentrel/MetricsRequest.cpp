#include "zentrel/MetricsRequest.h"

#include "base/Text.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeadEnd = "\r\n\r\n";

bool IsToken(std::string_view text)
{
    constexpr std::string_view kMarks = "!#$%&'*+-.^_`|~";
    return !text.empty() && std::all_of(text.begin(), text.end(), [&](char c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        return isLetter || (c >= '0' && c <= '9') || kMarks.find(c) != std::string_view::npos;
    });
}

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// Takes the text before `mark`, and the mark, off the front; the whole text when there is none.
std::string_view Take(std::string_view& text, std::string_view mark)
{
    const auto end = text.find(mark);
    const auto taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + mark.size());
    return taken;
}

// Of "/metrics?x" or "http://host/metrics?x"; empty when it is neither.
std::string_view PathOf(std::string_view target)
{
    constexpr std::string_view kScheme = "http://";
    if (CompareFolded(target.substr(0, kScheme.size()), kScheme) == 0) {
        target.remove_prefix(kScheme.size());
        target.remove_prefix(std::min(target.size(), target.find('/')));
    }
    if (!target.starts_with('/')) return {};
    return Take(target, "?");
}

// A line break that is none, or a NUL: readers of one head would not agree on what it says.
bool HasStrayBytes(std::string_view head)
{
    for (std::size_t i = 0; i < head.size(); ++i) {
        const bool isAfterCr = i > 0 && head[i - 1] == '\r';
        if (head[i] == '\0' || isAfterCr != (head[i] == '\n')) return true;
    }
    return false;
}

bool AreHeaders(std::string_view lines, bool needsHost)
{
    int hosts = 0;
    while (!lines.empty()) {
        auto line = Take(lines, kLineEnd);
        const auto colon = line.find(':');
        const auto name = Take(line, ":");
        const bool isValue =
            std::none_of(line.begin(), line.end(), [](char c) { return c != '\t' && IsControl(c); });
        if (colon == std::string_view::npos || !IsToken(name) || !isValue) return false;
        if (CompareFolded(name, "host") == 0) ++hosts;
    }
    return hosts == 1 || (hosts == 0 && !needsHost);
}

}  // namespace

MetricsRequest ReadMetricsRequest(std::string_view bytes)
{
    const auto end = bytes.substr(0, kLongestMetricsRequest).find(kHeadEnd);
    const bool isWhole = end != std::string_view::npos;
    auto head = bytes.substr(0, isWhole ? end : std::min(bytes.size(), kLongestMetricsRequest));
    if (HasStrayBytes(head)) return MetricsRequest::Malformed;
    if (!isWhole)
        return bytes.size() < kLongestMetricsRequest ? MetricsRequest::Unfinished : MetricsRequest::Malformed;

    auto line = Take(head, kLineEnd);
    const auto method = Take(line, " ");
    const auto target = Take(line, " ");
    const bool isOurs = line == "HTTP/1.1" || line == "HTTP/1.0";
    const bool isTarget = !target.empty() && std::none_of(target.begin(), target.end(), IsControl);
    if (!isOurs || !IsToken(method) || !isTarget || !AreHeaders(head, line == "HTTP/1.1"))
        return MetricsRequest::Malformed;
    if (PathOf(target) != "/metrics") return MetricsRequest::OtherPath;
    return method == "GET" ? MetricsRequest::Metrics : MetricsRequest::OtherMethod;
}

}  // namespace zentrel
