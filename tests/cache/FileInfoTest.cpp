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

// Knows one root.
struct OneRoot : VirtualRootReader {
    OneRoot(std::string_view at, std::string_view path) : key(at), value(path) {}
    std::string_view VirtualRoot(std::string_view asked) override { return asked == key ? value : ""; }

    const std::string_view key, value;
};

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

TEST(FileInfo, AClearedRecordIsAsEmptyAsANewOne)
{
    FileInfo info = Filled();
    info.Clear();
    EXPECT_EQ(info, FileInfo{});
    EXPECT_EQ(Derived(info), "0 0 0 0 0 0 0 0");
    EXPECT_EQ(info.MetaPath() + info.PhysycalPath() + info.CacheFilePath(), "/");
}

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

    struct Case {
        std::int32_t level, count, average;
    };
    for (const auto& [level, count, average] : {Case{20, 3, 6}, {-20, 3, -6}, {kLeast, 1, kLeast}}) {
        info.CompLevel = level;
        info.Count = count;
        EXPECT_EQ(info.AvgCompLevel(), average);
    }
}

TEST(FileInfo, PathsAndTreeKeysAreTakenApart)
{
    struct Case {
        const char *path, *extension, *filePath, *fileName;
    };
    const Case paths[] = {
        {"/LM/W3SVC/1/Root/lib/Menu.min.JS", "js", "/lib/Menu.min.JS", "Menu.min.JS"},
        {"/LM/W3SVC/1/Root/Docs/Read.Me/file", "me/file", "/Docs/Read.Me/file", "file"},
        {"/LM/W3SVC/1/Root/", "", "/", ""},
        {"/LM/W3SVC/1/Root//end.", "", "//end.", "end."},
        {"//LM/W3SVC/1/Root", "", "/Root", "Root"},
        {"/a.B", "b", "/", ""},
        {"/", "", "/", ""},
    };
    FileInfo info = Filled();
    for (const auto& row : paths) {
        info.SetMetaPath(row.path, VirtualRootMatch{});
        EXPECT_EQ(info.MetaPath(), row.path);
        EXPECT_EQ(info.Extension, row.extension) << row.path;
        EXPECT_EQ(info.FilePath, row.filePath) << row.path;
        EXPECT_EQ(info.FileName, row.fileName) << row.path;
    }
    info.SetMetaPath("LM/x", VirtualRootMatch{});
    EXPECT_EQ(info.MetaPath(), "/LM/x");

    info.SetRelPath("1/Root/dir/sub.x");
    EXPECT_EQ(info.FilePath + "|" + info.FileName, "/dir/sub.x|sub.x");
    info.SetRelPath("1/Root");
    EXPECT_EQ(info.FilePath + "|" + info.FileName, "/|");
    EXPECT_EQ(info.MetaPath(), "/LM/x");
}

TEST(FileInfo, ThePhysicalPathLiesUnderTheNearestVirtualRoot)
{
    struct Case {
        const char *key, *value, *path, *physical;
    };
    const Case rows[] = {
        {"LM/W3SVC/1/Root", "D:\\web", "LM/W3SVC/1/Root/img/a.gif", "D:\\web\\img\\a.gif"},
        {"LM/W3SVC/1/Root", "/srv/www/", "LM/W3SVC/1/Root/a/b/c", "\\srv\\www\\a\\b\\c"},
        {"LM/W3SVC/1/Root/img", "E:\\pics", "LM/W3SVC/1/Root/img/a.gif", "E:\\pics\\a.gif"},
        {"LM/W3SVC/1/Root/img", "E:\\pics", "LM/W3SVC/1/Root/img", "E:\\pics\\img"},  // the root itself
        {"LM/W3SVC/1", "D:\\site", "LM/W3SVC/1/Root/img/a.gif", "D:\\site"},
        {"LM/W3SVC", "D:\\all", "LM/W3SVC/1/Root/img/a.gif", ""},
    };
    for (const auto& row : rows) {
        OneRoot roots(row.key, row.value);
        FileInfo info;
        info.SetMetaPath(row.path, roots);
        EXPECT_EQ(info.PhysycalPath(), row.physical) << row.path;
    }
}

TEST(FileInfo, TheCachedFileIsNamedAfterItsIdAndItsQuery)
{
    FileInfo info = Filled();
    EXPECT_EQ(info.CacheFilePath(), "12\\1234\\00000000ABCD.gzip");
    info.QueryHash.clear();
    EXPECT_EQ(info.CacheFilePath(), "12\\1234.gzip");
}
