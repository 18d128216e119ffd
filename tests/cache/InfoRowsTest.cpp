#include "cache/InfoRows.h"

#include <gtest/gtest.h>

namespace {

// A line for each row, as a panel shows it.
std::string Print(std::span<const InfoRow> rows, const FileInfo& info)
{
    std::string out;
    const auto texts = InfoTexts(rows, info, FormatLocale{});
    for (std::size_t i = 0; i < rows.size(); ++i)
        out += CaptionOf(rows[i]) + texts[i] + (ToolTipOf(rows[i]).empty() ? "\n" : "*\n");
    return out;
}

FileInfo Record()
{
    FileInfo info;
    info.Count = 2;
    info.CompLevel = 13;
    info.CompressedSize = 256;
    info.UncompressedSize = 1024;
    info.ServedCompressed = 1000;
    info.UncompEquivalent = 3000;
    info.TotalHits = 8;
    info.CacheHits = 6;
    info.CpuTime = 10'000;
    info.Overwrites = 1;
    info.TotalLife = 36'000'000'000;
    info.CacheDate = {36526.5};
    return info;
}

TEST(InfoRows, ShowARecordRowByRow)
{
    auto info = Record();
    EXPECT_EQ(Print(CacheTotalsRows(), info),
              "Total Cached Files:2*\nCompressed Size:256\nUncompressed Size:1 KiB\n"
              "Served Compressed:1000\nOriginal Equivalent:2.93 KiB\nBandwith Savings:1.95 KiB\n"
              "Boost Ratio:200.00%\nTotal Hits:8\nCache Hits:6\n% Cache Hits:75.00%\n");
    const std::string first = "Compession Level:6\nCompressed Size:256\nUncompressed Size:1 KiB\n"
                              "File Remains:25.00%\nBoost Ratio:200.00%\nTotal Hits:8\nCache Hits:6\n"
                              "% Cache Hits:75.00%\nComp CPU Time:";
    EXPECT_EQ(Print(FileInfoRows(), info), first + "\nAvg Cache Lifetime:1:00:00.000\n"
                                                   "Cache Created:2000-01-01 12:00\nCache Expires:\n");
    info.Count = 1;
    EXPECT_NE(Print(FileInfoRows(), info).find("Comp CPU Time:0:00:00.001\n"), std::string::npos);
    const auto empty = Print(CacheTotalsRows(), FileInfo());
    EXPECT_NE(empty.find("Boost Ratio:\nTotal Hits:0\nCache Hits:0\n% Cache Hits:\n"), std::string::npos);
}

}  // namespace
