#include "zentrel/RecordLayout.h"

#include "zentrel/RecordBuilder.h"

#include <gtest/gtest.h>

using namespace zentrel;

namespace {

// Every byte differs, so that a wrong offset or a wrong order shows.
constexpr std::uint64_t kCached = 0x01C6A1B2C3D4E5F6;
constexpr std::uint64_t kExpires = 0x01C7B1A293847566;
constexpr std::uint64_t kFile = 0x01C5091827364554;
constexpr std::uint64_t kPlain = 0x0102030405060708;
constexpr std::uint64_t kPacked = 0x1112131415161718;
constexpr std::uint64_t kHash = 0x21222324A5A6A7A8;
constexpr std::uint32_t kLevel = 0x81828384;

const StatisticsRecord kStatistics{static_cast<std::int32_t>(kLevel), 22, 33, kPlain, kPacked};

CacheRecord Expected(std::uint8_t version)
{
    return {version, static_cast<std::int32_t>(kLevel), kCached, kExpires, kFile, kPlain, kPacked, kHash};
}

RecordBytes NewCacheRecord(std::uint32_t header = 0x01000300)
{
    return LittleEndianRecord(header, layout::kCache,
                              {kLevel, kCached, kExpires, kFile, kPlain, kPacked, kHash});
}

RecordBytes OldCacheRecord(std::uint32_t header)
{
    return LittleEndianRecord(header, layout::kOldCache,
                              {kCached, kCached >> 32, kExpires, kExpires >> 32, kFile, kFile >> 32, kLevel,
                               kPlain, kPacked, kHash});
}

RecordBytes NewStatisticsRecord(std::uint32_t header)
{
    return LittleEndianRecord(header, layout::kStatistics, {kLevel, 22, 33, kPlain, kPacked});
}

}  // namespace

TEST(RecordLayout, EveryLayoutReadsTheSameInBothByteOrders)
{
    const std::pair<std::uint32_t, std::uint8_t> cases[] = {
        {0x01000300, 3}, {0x01090300, 3}, {0x01000200, 2}, {0x01000100, 1}, {0x00000100, 1}, {0x01070000, 0}};
    for (const auto& [header, version] : cases) {
        const auto record = version == 3 ? NewCacheRecord(header) : OldCacheRecord(header);
        const auto letters = version == 3 ? layout::kCache : layout::kOldCache;
        EXPECT_EQ(ParseCacheRecord(record), Expected(version)) << header;
        EXPECT_EQ(ParseCacheRecord(Twin(record, letters)), Expected(version)) << header;
    }
    for (const auto header : {0x01000100U, 0x01050000U, 0x00000100U}) {
        EXPECT_EQ(ParseStatisticsRecord(NewStatisticsRecord(header)), kStatistics) << header;
        EXPECT_EQ(ParseStatisticsRecord(Twin(NewStatisticsRecord(header), layout::kStatistics)), kStatistics);
    }
}

TEST(RecordLayout, HeadersThatAreNoneOrTooNewAreRefused)
{
    const std::uint32_t refused[] = {
        0x00000000, 0x01000000, 0x00000001,              // no version
        0x02000100, 0xFF000300, 0x00010002,              // another mark than 1
        0x01000101, 0x01010001, 0x01000301,              // a mark at both ends
        0x00000200, 0x00020000, 0x00010100, 0x00000300,  // no mark, and not version 1 alone
        0x01000400, 0x00040001, 0x0100FF00,              // too new
    };
    for (const auto header : refused) {
        EXPECT_FALSE(ParseCacheRecord(NewCacheRecord(header))) << header;
        EXPECT_FALSE(ParseStatisticsRecord(NewStatisticsRecord(header))) << header;
    }
    for (const auto header : {0x01000200U, 0x00020001U, 0x01000300U})  // too new for statistics
        EXPECT_FALSE(ParseStatisticsRecord(NewStatisticsRecord(header))) << header;
}

TEST(RecordLayout, MissingBytesReadAsZeroAndSurplusOnesAreIgnored)
{
    for (const auto& whole : {NewCacheRecord(), Twin(NewCacheRecord(), layout::kCache)}) {
        for (std::size_t size = 0; size <= whole.size(); ++size) {
            auto padded = whole;
            std::fill(padded.begin() + static_cast<std::ptrdiff_t>(size), padded.end(), std::byte{0});
            EXPECT_EQ(ParseCacheRecord(std::span(whole).first(size)), ParseCacheRecord(padded)) << size;
        }
        auto longer = whole;
        longer.resize(5000, std::byte{0xEE});
        EXPECT_EQ(ParseCacheRecord(longer), Expected(3));
    }
}

TEST(RecordLayout, WhatIsWrittenIsTheNewestLayoutByteForByte)
{
    const auto cache = WriteCacheRecord(Expected(1));
    EXPECT_EQ(RecordBytes(cache.begin(), cache.end()), NewCacheRecord());

    auto expected = NewStatisticsRecord(0x01000100);
    expected.resize(StatisticsRecord::kSize);
    const auto statistics = WriteStatisticsRecord(kStatistics);
    EXPECT_EQ(RecordBytes(statistics.begin(), statistics.end()), expected);
}
