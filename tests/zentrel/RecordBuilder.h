#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// A record's layout, one letter for each run of bytes that a machine's byte order turns round: 'n' 4 bytes,
// 'q' 8 bytes. A date in word-pair order is "nn".
namespace layout {
inline constexpr std::string_view kCache = "nnqqqqqq";
inline constexpr std::string_view kOldCache = "nnnnnnnnqqq";
inline constexpr std::string_view kStatistics = "nnnnqq";
}  // namespace layout

using RecordBytes = std::vector<std::byte>;

// The header's bytes in the order stored (0x01000300 for 01 00 03 00), then the values little-endian.
// values: one for each letter behind the header's.
inline RecordBytes LittleEndianRecord(std::uint32_t header, std::string_view letters,
                                      const std::vector<std::uint64_t>& values)
{
    RecordBytes record;
    for (const unsigned bit : {24U, 16U, 8U, 0U}) record.push_back(static_cast<std::byte>(header >> bit));
    for (std::size_t i = 0; i < values.size(); ++i)
        for (unsigned bit = 0; bit < (letters.at(i + 1) == 'q' ? 64U : 32U); bit += 8)
            record.push_back(static_cast<std::byte>(values[i] >> bit));
    return record;
}

// The same record as a machine of the other byte order writes it; shorter ones are filled up with zeros.
inline RecordBytes Twin(std::span<const std::byte> record, std::string_view letters)
{
    RecordBytes twin(record.begin(), record.end());
    std::size_t at = 0;
    for (const auto letter : letters) {
        const std::size_t end = at + (letter == 'q' ? 8 : 4);
        if (twin.size() < end) twin.resize(end);
        std::reverse(twin.begin() + static_cast<std::ptrdiff_t>(at),
                     twin.begin() + static_cast<std::ptrdiff_t>(end));
        at = end;
    }
    return twin;
}
