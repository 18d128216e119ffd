#include "zentrel/MetricsRequest.h"

#include "fuzz/Targets.h"

#include <string>

namespace fuzz {

void MetricsRequest(Input bytes)
{
    using Asked = zentrel::MetricsRequest;
    const auto text = TextOf(bytes);
    const auto asked = zentrel::ReadMetricsRequest(text);
    if (asked == Asked::Unfinished)
        return Require(text.size() < zentrel::kLongestMetricsRequest, "a request ends or is too long");
    Require(zentrel::ReadMetricsRequest(std::string(text) + "\r\n\r\nGET\n") == asked,
            "what follows does not matter");
    if (asked == Asked::Malformed) return;
    const auto end = text.find("\r\n\r\n");
    Require(end < zentrel::kLongestMetricsRequest, "a request ends with its head");
    Require(zentrel::ReadMetricsRequest(text.substr(0, end + 3)) == Asked::Unfinished, "and not before");
    Require(text.substr(0, end).find('\0') == std::string_view::npos, "it holds no zeros");
    if (asked != Asked::Metrics) return;
    Require(text.starts_with("GET "), "only GET is answered");
    const auto line = text.substr(0, text.find("\r\n"));
    Require(line.find("/metrics") != std::string_view::npos, "only for the metrics");
}

}  // namespace fuzz
