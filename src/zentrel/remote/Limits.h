#pragma once

#include <cstddef>
#include <cstdint>

// What a client accepts from a server, however large the server says its world is. A reply beyond any of
// these fails with InvalidData.
namespace zentrel::Limit {

inline constexpr std::size_t Message = std::size_t{4} << 20;     // bytes of one message
inline constexpr std::size_t Batch = std::size_t{1} << 20;       // bytes of packed rows in one message
inline constexpr std::size_t Record = std::size_t{1} << 20;      // bytes of one property
inline constexpr std::size_t Window = std::size_t{4} << 20;      // bytes on their way, to begin with
inline constexpr std::size_t Metadata = std::size_t{16} << 10;   // bytes of headers and of a failure's text
inline constexpr std::size_t Path = std::size_t{60} << 10;       // bytes of a path that is asked for
inline constexpr std::size_t CacheDir = 4096;                    // bytes of the cache folder's path
inline constexpr std::size_t FilePart = std::size_t{256} << 10;  // bytes of a cached file in one message
inline constexpr std::uint64_t File = std::uint64_t{1} << 30;    // bytes of a cached file
inline constexpr std::size_t Counters = 4096;                    // bytes of the packed counters
inline constexpr std::size_t Services = 1000;                    // in one list
inline constexpr std::size_t ServiceName = 256;                  // bytes
inline constexpr std::uint32_t Names = 10'000'000;               // in one enumeration
// A tree of that many rows takes up to 250 bytes a row and the names; a server that lies all along can make
// that 6 GiB in all, no more.
inline constexpr std::uint64_t Rows = 5'000'000;                       // in one stream
inline constexpr std::uint64_t RowNames = std::uint64_t{256} << 20;    // bytes of their names together
inline constexpr std::uint64_t RowBytes = std::uint64_t{1'536} << 20;  // bytes of the whole stream
inline constexpr std::uint32_t Depth = 131'072;                        // levels below a stream's first key
inline constexpr std::size_t LevelBytes = std::size_t{16} << 20;  // the largest rows of all levels together
inline constexpr double StreamRate = 1024;  // bytes a second that a stream must bring while it is waited for
inline constexpr int IdleNews = 120;        // messages of a deletion in a row that tell of no progress
inline constexpr int News = 10'000;         // messages of a deletion

}  // namespace zentrel::Limit
