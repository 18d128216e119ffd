#include "cache/InfoRows.h"
#include "cache/NodeInfo.h"

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

TEST(NodeInfo, IsAFilesRecordOrTheSumOfAFoldersOwnFiles)
{
    CacheTree tree{FormatLocale{}};
    const auto root = tree.AddRoot();
    const auto site = tree.AddChild(root, "1/Root", NodeKind::WebSite);
    const auto folder = tree.AddChild(site, "dir", NodeKind::Folder);
    const auto file = tree.AddChild(folder, "a.htm", NodeKind::File);
    const auto other = tree.AddChild(folder, "b.htm", NodeKind::File);
    const auto multi = tree.AddChild(folder, "c.asp", NodeKind::MultiFile);
    const auto bare = tree.AddChild(folder, "d.htm", NodeKind::File);
    for (const auto node : {file, other, multi}) tree.SetInfo(node, Record());

    const auto sum = InfoOfNode(tree, folder);
    EXPECT_EQ(sum.caption, "Directory Information (2 Files)");
    ASSERT_TRUE(sum.info);
    EXPECT_EQ(sum.info->CompressedSize, 512);
    EXPECT_EQ(sum.info->FilePath, "/dir");
    for (const auto node : {file, multi}) EXPECT_EQ(InfoOfNode(tree, node).info->CacheHits, 6);
    for (const auto node : {root, site, bare, kNoNode}) EXPECT_FALSE(InfoOfNode(tree, node).info) << node;
    for (const auto node : {root, site, file, multi, kNoNode})
        EXPECT_EQ(InfoOfNode(tree, node).caption, "File Information") << node;
}

}  // namespace
