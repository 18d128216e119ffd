#pragma once

#include <cstdint>
#include <string_view>

namespace zentrel {

// Whether a file is worth compressing, by the ending of its name: texts of all kinds are, what is
// compressed already is not. In any case of letters.
bool IsCompressibleName(std::string_view fileName);

// The sizes, in bytes, of files that are compressed.
inline constexpr std::uint64_t kSmallestCompressed = 256;
inline constexpr std::uint64_t kLargestCompressed = std::uint64_t{64} << 20U;

}  // namespace zentrel
