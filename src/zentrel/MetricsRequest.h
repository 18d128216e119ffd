#pragma once

#include <cstddef>
#include <string_view>

namespace zentrel {

inline constexpr std::size_t kLongestMetricsRequest = 8192;  // bytes, without a body

// What the bytes of an HTTP/1 client ask for.
enum class MetricsRequest {
    Unfinished,   // more bytes must tell
    Metrics,      // GET /metrics
    OtherPath,    // something that there is none of
    OtherMethod,  // something else to be done with /metrics
    Malformed,    // no such request, or too long a one
};

// Bytes behind the request do not matter.
MetricsRequest ReadMetricsRequest(std::string_view bytes);

}  // namespace zentrel
