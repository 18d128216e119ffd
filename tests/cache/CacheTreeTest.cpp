#include "cache/CacheTree.h"

#include <gtest/gtest.h>

namespace {

FileInfo Sizes(double uncompressed, double compressed)
{
    FileInfo info;
    info.UncompressedSize = uncompressed;
    info.CompressedSize = compressed;
    info.CacheExt = ".gzip";
    info.Count = 1;
    return info;
}

std::string Children(const CacheTree& tree, NodeId node)
{
    std::string names;
    for (std::size_t row = 0; row < tree.ChildCount(node); ++row)
        names.append(tree.Name(tree.Child(node, row))) += '|';
    return names;
}

}  // namespace

TEST(CacheTree, ChildrenSortByTheTextThatIsShown)
{
    CacheTree tree{FormatLocale{}};
    tree.AddRoot();
    const auto site = tree.AddChild(0, "1/Root", NodeKind::WebSite);
    for (const char* name : {"B", "Z", "a", "a.b", "a b", "a !", "b", "\xC3\x84"}) {
        const auto node = tree.AddChild(site, name, NodeKind::File);
        tree.SetInfo(node, Sizes(100, 50));
    }
    tree.AddChild(site, "a (4", NodeKind::Folder);
    int ticks = 0;
    tree.SortChildren(site, [&ticks] { ++ticks; });
    // "a !" stands before "a (4" and that before "a (50%) Remains": the texts tell, not the names.
    EXPECT_EQ(Children(tree, site), "a !|a (4|a|a b|a.b|B|b|Z|\xC3\x84|");
}

TEST(CacheTree, FindsChildrenWhateverOrderTheyCameIn)
{
    CacheTree tree{FormatLocale{}};
    tree.AddRoot();
    const auto site = tree.AddChild(0, "1/Root", NodeKind::WebSite);
    std::vector<std::string> names;
    for (int i = 0; i < 500; ++i) names.push_back(std::to_string((i * 7919) % 500));
    std::sort(names.begin(), names.begin() + 250);  // first in order, then not
    for (const auto& name : names) {
        EXPECT_EQ(tree.FindChild(site, name), kNoNode) << name;
        tree.AddChild(site, name, NodeKind::Folder);
    }
    tree.SortChildren(site, [] {});
    for (const auto& name : names) {
        const auto node = tree.FindChild(site, name);
        ASSERT_NE(node, kNoNode);
        EXPECT_EQ(tree.Name(node), name);
        EXPECT_EQ(tree.Find("1/Root/" + name), node);
    }
    EXPECT_EQ(tree.Find("1/Root/nothing"), kNoNode);
    EXPECT_EQ(tree.Find("1"), kNoNode);
    EXPECT_EQ(tree.Find("Root"), tree.Root());
}

TEST(CacheTree, ARecordSurvivesPacking)
{
    CacheTree tree{FormatLocale{}};
    tree.AddRoot();
    const auto site = tree.AddChild(0, "7/Root", NodeKind::WebSite);
    const auto node = tree.AddChild(site, "Page.HTM", NodeKind::MultiFile);
    FileInfo info = Sizes(1.8e19, 3);
    info.CompLevel = 9;
    info.CacheDate.days = 45000.5;
    info.Expires.days = -109205;
    info.FileDate.days = 1;
    info.TotalHits = -3;
    info.CacheHits = 4;
    info.Overwrites = 5;
    info.TotalLife = 6;
    info.CpuTime = 7;
    info.CacheID = -256;
    info.CacheExt = ".deflate";
    info.SubQueryCount = 2;
    info.QueryHash = "FEDCBA9876543210";
    info.ServedCompressed = -9;
    info.UncompEquivalent = info.TotalHits * info.UncompressedSize;
    info.SetMetaPath("LM/W3SVC/7/Root/Page.HTM", VirtualRootMatch{"D:/web", 3});
    tree.SetInfo(node, info);
    EXPECT_EQ(tree.Info(node), info);
    EXPECT_EQ(tree.Text(node), "Page.HTM (2 entries)");
}
