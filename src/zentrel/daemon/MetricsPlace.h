#pragma once

#include "base/Result.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zentrel {

// Where metrics scrapers find the daemon.
struct MetricsPlace {
    std::string address;     // one that no other machine reaches; empty: nowhere
    std::uint16_t port = 0;  // 0: any that is free, which the log tells

    bool operator==(const MetricsPlace&) const = default;
};

// Reads "127.0.0.1:9280", "[::1]:9280". An empty text is nowhere. InvalidParameter for anything else, and for
// an address that other machines reach: nobody is asked who he is.
Result<MetricsPlace> ReadMetricsPlace(std::string_view text);

}  // namespace zentrel
