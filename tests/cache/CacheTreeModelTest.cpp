#include "cache/CacheTreeModel.h"
#include "cache/CacheTreeView.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace {

TEST(CacheTreeModel, TellsTheViewWhichRowsStayLeaves)
{
    CacheTree tree{FormatLocale{}};
    const auto root = tree.AddRoot();
    const auto site = tree.AddChild(root, "1/Root", NodeKind::WebSite);
    tree.SetText(site, "Site");
    const auto entry = tree.AddChild(site, "a", NodeKind::File);
    const auto below = tree.AddChild(entry, "b", NodeKind::File);
    const auto folder = tree.AddChild(site, "f", NodeKind::Folder);
    for (const auto node : {entry, below}) tree.SetInfo(node, FileInfo());
    CacheTreeModel model;
    EXPECT_FALSE(model.IndexOf(root).isValid());
    model.SetTree(&tree);
    const auto isLeaf = [&](NodeId node) {
        return model.IndexOf(node).flags().testFlag(Qt::ItemNeverHasChildren);
    };
    EXPECT_FALSE(isLeaf(root) || isLeaf(site) || isLeaf(entry));
    EXPECT_TRUE(isLeaf(below) && isLeaf(folder));
    EXPECT_EQ(CacheTreeModel::NodeOf(model.IndexOf(below)), below);
    EXPECT_EQ(CacheTreeModel::NodeOf({}), kNoNode);
    EXPECT_EQ(model.IndexOf(site).data(Qt::AccessibleTextRole), "Site");
    EXPECT_EQ(model.IndexOf(entry).data().toString(), "a (0%) Remains");
    EXPECT_FALSE(model.IndexOf(site).data(Qt::ToolTipRole).isValid());
}

TEST(CacheTreeModel, AnswersFromTheDepthsOfATree)
{
    CacheTree tree{FormatLocale{}};
    auto deepest = tree.AddRoot();
    for (int i = 0; i < 100'000; ++i) deepest = tree.AddChild(deepest, "d", NodeKind::Folder);
    CacheTreeModel model;
    model.SetTree(&tree);
    int depth = 0;
    for (auto index = model.IndexOf(deepest); index.isValid(); index = index.parent()) ++depth;
    EXPECT_EQ(depth, 100'001);
}

TEST(CacheTreeView, ElidesLongTextsAndLeavesRoomForDeepOnes)
{
    CacheTree tree{FormatLocale{}};
    auto deepest = tree.AddRoot();
    for (int i = 0; i < 100; ++i) deepest = tree.AddChild(deepest, std::string(500, 'd'), NodeKind::Folder);
    CacheTreeModel model;
    CacheTreeView view;
    view.setModel(&model);
    view.resize(300, 200);
    view.show();
    model.SetTree(&tree);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.columnWidth(0), view.viewport()->width());

    view.expandAll();
    const auto index = model.IndexOf(deepest);
    view.scrollTo(index);
    EXPECT_GT(view.visualRect(index).width(), 100);
    EXPECT_LT(view.columnWidth(0), 100 * view.indentation() + 600);

    model.SetTree(nullptr);
    model.SetTree(&tree);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.columnWidth(0), view.viewport()->width());
}

}  // namespace
