#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// The two binary records that the service keeps with a cache entry, and the place of the cached file.
// A record begins with a header of 4 bytes that tells the byte order of the machine that wrote it and the
// version of the layout. Readers take every layout ever written, in both byte orders; the service writes the
// newest one, little-endian.
namespace zentrel {

// Times are ticks of 100 nanoseconds; a date counts them from 1601-01-01 00:00 UTC.

// Properties 528404 (gzip) and 528405 (deflate). Sizes are bytes.
struct CacheRecord {
    static constexpr std::size_t kSize = 56;
    static constexpr std::uint8_t kNewest = 3;

    std::uint8_t version = kNewest;  // 0 to 3
    std::int32_t level = 0;          // compression level
    std::uint64_t cacheTicks = 0;    // when the entry was cached
    std::uint64_t expiresTicks = 0;
    std::uint64_t fileTicks = 0;  // time stamp of the source file
    std::uint64_t uncompressedSize = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t queryHash = 0;  // 0 = the plain URL

    friend bool operator==(const CacheRecord&, const CacheRecord&) = default;
};

// Property 528410.
struct StatisticsRecord {
    static constexpr std::size_t kSize = 48;
    static constexpr std::uint8_t kNewest = 1;

    std::int32_t totalHits = 0;
    std::int32_t cacheHits = 0;
    std::int32_t overwrites = 0;
    std::uint64_t totalLife = 0;  // lifetimes of the replaced versions together, in ticks
    std::uint64_t cpuTime = 0;    // processor time spent on compression, in ticks

    friend bool operator==(const StatisticsRecord&, const StatisticsRecord&) = default;
};

// Any bytes may be given. Bytes that a short record lacks read as 0, bytes beyond the layout are ignored.
// Empty when the header is not one of a record, or its version is newer than the newest one known.
std::optional<CacheRecord> ParseCacheRecord(std::span<const std::byte> bytes);
std::optional<StatisticsRecord> ParseStatisticsRecord(std::span<const std::byte> bytes);

// The newest layout, whatever version the record was read from.
std::array<std::byte, CacheRecord::kSize> WriteCacheRecord(const CacheRecord& record);
std::array<std::byte, StatisticsRecord::kSize> WriteStatisticsRecord(const StatisticsRecord& record);

// The key of a query-string variant in upper-case hexadecimal, 12 to 16 digits; empty for 0.
std::string QueryHashText(std::uint64_t queryHash);

// Where a cached file lies below the cache folder, for example 12/1234.gzip or 12/1234/00000000ABCD.gzip.
// extension: with its dot. Empty for cache id 0, which no file has.
std::string CachedFilePath(std::int32_t cacheId, std::string_view queryHash, std::string_view extension,
                           char separator);

// A date as days since 1899-12-30 00:00.
double TicksToDays(std::uint64_t ticks);

// The system's clock.
std::uint64_t TicksNow();

}  // namespace zentrel
