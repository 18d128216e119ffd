#include "cache/FileInfo.h"

#include "zentrel/RecordLayout.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

namespace {

constexpr std::uint64_t kDay = 864'000'000'000;
constexpr std::uint64_t kToday = 38'000 * kDay + 109'205 * kDay;
constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
constexpr auto kMost = std::numeric_limits<std::int32_t>::max();

const auto kCacheRecord =
    zentrel::WriteCacheRecord({3, 6, kToday, kToday + 2 * kDay, kToday - kDay / 2, 4000, 1000, 0xABCD});
const auto kStatistics = zentrel::WriteStatisticsRecord({5, 4, 2, 700, 90});

// A record with every field set.
FileInfo Filled()
{
    FileInfo info;
    info.CacheExt = ".gzip";
    info.RawBinary_528404(kCacheRecord);
    info.RawBinary_528410(kStatistics);
    info.SetMetaPath("/LM/W3SVC/1/Root/img/a.gif", VirtualRootMatch{"D:\\web", 3});
    info.CacheID = 4660;
    info.SubQueryCount = 3;
    return info;
}

std::string Summed(const FileInfo& info)
{
    std::ostringstream text;
    text << info.CompLevel << ' ' << info.UncompressedSize << ' ' << info.CompressedSize << ' '
         << info.TotalHits << ' ' << info.CacheHits << ' ' << info.Overwrites << ' ' << info.TotalLife << ' '
         << info.CpuTime << ' ' << info.ServedCompressed << ' ' << info.UncompEquivalent << ' ' << info.Count;
    return text.str();
}

std::string Derived(const FileInfo& info)
{
    std::ostringstream text;
    text << info.CurrentSavings() << ' ' << info.BandwidthSavings() << ' ' << info.Ratio() << ' '
         << info.Boost() << ' ' << info.AvgCompLevel() << ' ' << info.CacheHitsRatio() << ' '
         << info.AvgCacheLife() << ' ' << info.CompCpuTime();
    return text.str();
}

}  // namespace

TEST(FileInfo, RecordsFillTheirFields)
{
    FileInfo info;
    info.TotalHits = 3;
    info.RawBinary_528404(kCacheRecord);
    EXPECT_EQ(Summed(info), "6 4000 1000 3 0 0 0 0 3000 12000 1");  // with the hits known by then
    info.RawBinary_528410(kStatistics);
    EXPECT_EQ(Summed(info), "6 4000 1000 5 4 2 700 90 5000 20000 1");
    EXPECT_EQ(info.CacheDate, DateTime{38000});
    EXPECT_EQ(info.Expires, DateTime{38002});
    EXPECT_EQ(info.FileDate, DateTime{37999.5});
    EXPECT_EQ(info.QueryHash, "00000000ABCD");

    info.RawBinary_528404(std::span(kCacheRecord).first(8));
    EXPECT_EQ(Summed(info), "6 0 0 5 4 2 700 90 0 0 1");
    EXPECT_EQ(info.CacheDate, DateTime{-109205});
    EXPECT_EQ(info.QueryHash, "");
}

TEST(FileInfo, SumsTakeTheAmountsAndLeaveTheRest)
{
    FileInfo sum;
    sum.Extension = "gif";
    const FileInfo empty = sum;
    sum.Add(Filled());
    sum.Add(Filled());
    EXPECT_EQ(Summed(sum), "12 8000 2000 10 8 4 1400 180 10000 40000 2");
    sum.Subtract(Filled());
    sum.Subtract(Filled());
    EXPECT_EQ(sum, empty);

    FileInfo hostile;
    hostile.TotalHits = kMost;
    hostile.Count = kLeast;
    sum.Add(hostile);
    sum.Add(hostile);
    EXPECT_EQ(Summed(sum), "0 0 0 -2 0 0 0 0 0 0 0");
    sum.Subtract(hostile);  // -2 less the greatest number
    EXPECT_EQ(sum.TotalHits, kMost);
}

TEST(FileInfo, DerivedValuesGuardTheirDivisors)
{
    FileInfo info = Filled();
    EXPECT_EQ(Derived(info), "3000 15000 0.25 3 6 0.8 350 90");
    info.Count = 2;
    EXPECT_EQ(Derived(info), "3000 15000 0.25 3 3 0.8 350 0");
    info.UncompressedSize = info.ServedCompressed = -1;
    info.TotalHits = info.Overwrites = info.Count = -1;
    EXPECT_EQ(Derived(info), "-1001 20001 0 0 0 0 0 0");
}

TEST(FileInfo, TheTypeFollowsTheLastDot)
{
    FileInfo info = Filled();
    for (const auto& [path, extension] : {std::pair("/LM/W3SVC/1/Root/lib/Menu.min.JS", "js"),
                                          {"/LM/W3SVC/1/Root/Docs/Read.Me/file", "me/file"},
                                          {"/LM/W3SVC/1/Root//end.", ""}}) {
        info.SetMetaPath(path, VirtualRootMatch{});
        EXPECT_EQ(info.Extension, extension) << path;
    }
}
