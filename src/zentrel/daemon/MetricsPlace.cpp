#include "zentrel/daemon/MetricsPlace.h"

#include "zentrel/remote/ListenSocket.h"

#include <charconv>

namespace zentrel {

Result<MetricsPlace> ReadMetricsPlace(std::string_view text)
{
    MetricsPlace place;
    if (text.empty()) return place;
    const auto refused = [text](const char* why) {
        return Fail(Code::InvalidParameter, "Config", '"' + std::string(text) + "\": " + why);
    };
    const auto colon = text.rfind(':');
    const auto port = text.substr(colon == std::string_view::npos ? text.size() : colon + 1);
    const auto* const end = port.data() + port.size();
    const auto [at, error] = std::from_chars(port.data(), end, place.port);
    if (error != std::errc{} || at != end)
        return refused("metrics are offered at an address and a port, such as 127.0.0.1:9280");
    auto address = text.substr(0, colon);
    const bool isBracketed = address.starts_with('[') && address.ends_with(']');
    if (isBracketed) address = address.substr(1, address.size() - 2);
    if (isBracketed != (address.find(':') != std::string_view::npos))
        return refused("an address with colons stands in brackets, such as [::1]:9280");
    place.address = address;
    const auto isLoopback = IsLoopback(place.address);
    if (!isLoopback) return refused("this is no numeric address");
    if (!*isLoopback) return refused("other machines reach this address");
    return place;
}

}  // namespace zentrel
