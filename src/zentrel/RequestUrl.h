#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zentrel {

// What a request names, taken apart.
struct RequestUrl {
    std::string path;         // decoded, without a slash at either end; each segment passes CheckName
    bool isFolder = false;    // it ended in "/": the folder's index page is meant
    std::uint64_t query = 0;  // hash of the query string as it was sent; 0 when there is none
};

// Reads a URL as a client sends it: percent-encoded, beginning with "/", perhaps with "?query".
// Percent signs are decoded once. Empty when it names nothing that can exist.
std::optional<RequestUrl> ParseRequestUrl(std::string_view url);

// The same for the same text at all times; never 0.
std::uint64_t HashQuery(std::string_view query);

}  // namespace zentrel
