#include "zentrel/RecordLayout.h"

#include "zentrel/LittleEndian.h"

#include <algorithm>
#include <bit>
#include <chrono>

namespace zentrel {
namespace {

struct Header {
    std::endian order;
    std::uint8_t version;
};

// Byte order and version share the 4 bytes: a mark of 1 stands at one end, the version second from the
// other end. Version 1 was also written without the mark.
std::optional<Header> ReadHeader(std::span<const std::byte> record)
{
    std::array<std::byte, 4> raw{};
    std::copy_n(record.begin(), std::min(record.size(), raw.size()), raw.begin());
    const auto [b0, b1, b2, b3] = std::bit_cast<std::array<std::uint8_t, 4>>(raw);

    const Header little{std::endian::little, b2};
    const Header big{std::endian::big, b1};
    if (b1 == 0 && b2 == 0) return {};
    if (b0 == 1 && b3 == 0) return little;
    if (b0 == 0 && b3 == 1) return big;
    if (b0 != 0 || b3 != 0) return {};
    if (b2 == 1 && b1 == 0) return little;
    if (b1 == 1 && b2 == 0) return big;
    return {};
}

std::uint32_t Swapped(std::uint32_t value)
{
    return __builtin_bswap32(value);
}

std::uint64_t Swapped(std::uint64_t value)
{
    return __builtin_bswap64(value);
}

// Takes the fields behind the header one after the other.
template <std::size_t Size>
class FieldReader {
public:
    FieldReader(std::span<const std::byte> record, std::endian order) : m_swap(order == std::endian::big)
    {
        std::copy_n(record.begin(), std::min(record.size(), Size), m_bytes.begin());
    }

    std::int32_t Signed() { return static_cast<std::int32_t>(Take<std::uint32_t>()); }
    std::uint64_t Large() { return Take<std::uint64_t>(); }

    // Two 32-bit words, the low one first in both byte orders.
    std::uint64_t WordPair()
    {
        const std::uint64_t low = Take<std::uint32_t>();
        const std::uint64_t high = Take<std::uint32_t>();
        return (high << 32) | low;
    }

private:
    template <class Number>
    Number Take()
    {
        const auto value = LoadLittle<Number>(m_bytes.data() + m_next);
        m_next += sizeof(Number);
        return m_swap ? Swapped(value) : value;
    }

    std::array<std::byte, Size> m_bytes{};
    std::size_t m_next = 4;
    bool m_swap;
};

template <std::size_t Size>
class FieldWriter {
public:
    explicit FieldWriter(std::uint8_t version)
    {
        m_bytes[0] = std::byte{1};
        m_bytes[2] = std::byte{version};
    }

    template <class Number>
    void Put(Number value)
    {
        StoreLittle(m_bytes.data() + m_next, value);
        m_next += sizeof value;
    }

    const std::array<std::byte, Size>& Bytes() const { return m_bytes; }

private:
    std::array<std::byte, Size> m_bytes{};
    std::size_t m_next = 4;
};

void AppendHex(std::string& out, std::uint64_t value, std::size_t leastDigits)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const std::size_t needed = (std::bit_width(value) + 3) / 4;
    for (auto digit = std::max(leastDigits, needed); digit-- > 0;)
        out += kDigits[(value >> (4 * digit)) & 0xFU];
}

using Ticks = std::chrono::duration<std::uint64_t, std::ratio<1, 10'000'000>>;
constexpr std::uint64_t kTicksPerDay = Ticks(std::chrono::days(1)).count();
constexpr std::uint64_t kUnixEpoch = 134'774 * kTicksPerDay;  // 1601-01-01 to 1970-01-01
constexpr double kDateEpochDays = 109'205;                    // 1601-01-01 to 1899-12-30

}  // namespace

std::optional<CacheRecord> ParseCacheRecord(std::span<const std::byte> bytes)
{
    const auto header = ReadHeader(bytes);
    if (!header || header->version > CacheRecord::kNewest) return {};

    FieldReader<CacheRecord::kSize> fields(bytes, header->order);
    CacheRecord record;
    record.version = header->version;
    if (record.version == 3) {
        record.level = fields.Signed();
        record.cacheTicks = fields.Large();
        record.expiresTicks = fields.Large();
        record.fileTicks = fields.Large();
    } else {
        record.cacheTicks = fields.WordPair();
        record.expiresTicks = fields.WordPair();
        record.fileTicks = fields.WordPair();
        record.level = fields.Signed();
    }
    record.uncompressedSize = fields.Large();
    record.compressedSize = fields.Large();
    record.queryHash = fields.Large();
    return record;
}

std::optional<StatisticsRecord> ParseStatisticsRecord(std::span<const std::byte> bytes)
{
    const auto header = ReadHeader(bytes);
    if (!header || header->version > StatisticsRecord::kNewest) return {};

    FieldReader<StatisticsRecord::kSize> fields(bytes, header->order);
    StatisticsRecord record;
    record.totalHits = fields.Signed();
    record.cacheHits = fields.Signed();
    record.overwrites = fields.Signed();
    record.totalLife = fields.Large();
    record.cpuTime = fields.Large();
    return record;
}

std::array<std::byte, CacheRecord::kSize> WriteCacheRecord(const CacheRecord& record)
{
    FieldWriter<CacheRecord::kSize> fields(CacheRecord::kNewest);
    fields.Put(record.level);
    fields.Put(record.cacheTicks);
    fields.Put(record.expiresTicks);
    fields.Put(record.fileTicks);
    fields.Put(record.uncompressedSize);
    fields.Put(record.compressedSize);
    fields.Put(record.queryHash);
    return fields.Bytes();
}

std::array<std::byte, StatisticsRecord::kSize> WriteStatisticsRecord(const StatisticsRecord& record)
{
    FieldWriter<StatisticsRecord::kSize> fields(StatisticsRecord::kNewest);
    fields.Put(record.totalHits);
    fields.Put(record.cacheHits);
    fields.Put(record.overwrites);
    fields.Put(record.totalLife);
    fields.Put(record.cpuTime);
    return fields.Bytes();
}

std::string QueryHashText(std::uint64_t queryHash)
{
    std::string text;
    if (queryHash != 0) AppendHex(text, queryHash, 12);
    return text;
}

std::string CachedFilePath(std::int32_t cacheId, std::string_view queryHash, std::string_view extension,
                           char separator)
{
    std::string path;
    if (cacheId == 0) return path;
    // The division keeps the sign, so that ids -255 to 255 share folder 0.
    AppendHex(path, static_cast<std::uint32_t>(cacheId / 256), 1);
    path += separator;
    AppendHex(path, static_cast<std::uint32_t>(cacheId), 1);
    if (!queryHash.empty()) {
        path += separator;
        path += queryHash;
    }
    path += extension;
    return path;
}

double TicksToDays(std::uint64_t ticks)
{
    return static_cast<double>(ticks) / static_cast<double>(kTicksPerDay) - kDateEpochDays;
}

std::uint64_t TicksNow()
{
    using Signed = std::chrono::duration<std::int64_t, Ticks::period>;
    const auto sinceUnix = std::chrono::system_clock::now().time_since_epoch();
    return kUnixEpoch + static_cast<std::uint64_t>(std::chrono::duration_cast<Signed>(sinceUnix).count());
}

}  // namespace zentrel
