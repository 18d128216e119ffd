#pragma once

#include "zentrel/Encoding.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zentrel {

// Names one cached file; its place in the cache folder follows from it.
struct CachedFile {
    std::uint32_t id = 0;  // the URL's cache id, 1 to 2^31 - 1
    Encoding encoding = Encoding::Gzip;
    std::uint64_t query = 0;  // hash of the query string, 0 = none

    std::string Path() const;  // "12/1234.gzip", "12/1234/00000000ABCD.gzip"
    static std::optional<CachedFile> Parse(std::string_view path);  // what Path answers, and nothing else

    friend auto operator<=>(const CachedFile&, const CachedFile&) = default;
};

// The number that a name made by QueryHashText stands for.
std::optional<std::uint64_t> ParseQueryHash(std::string_view text);

}  // namespace zentrel
