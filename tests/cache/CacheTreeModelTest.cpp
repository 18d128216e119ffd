#include "cache/CacheTreeModel.h"
#include "cache/CacheTreeView.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>

namespace {

using Tester = QAbstractItemModelTester;

struct Fixture {
    Fixture()
    {
        root = tree.AddRoot();
        site = tree.AddChild(root, "1/Root", NodeKind::WebSite);
        tree.SetText(site, "Site");
        entry = tree.AddChild(site, "a", NodeKind::File);
        below = tree.AddChild(entry, "b", NodeKind::File);
        folder = tree.AddChild(site, "f", NodeKind::Folder);
        for (const auto node : {entry, below}) tree.SetInfo(node, FileInfo());
    }

    CacheTree tree{FormatLocale{}};
    CacheTreeModel model;
    NodeId root, site, entry, below, folder;
};

TEST(CacheTreeModel, KeepsTheRulesOfItemModels)
{
    Fixture f;
    const Tester tester(&f.model, Tester::FailureReportingMode::Fatal);
    EXPECT_EQ(f.model.rowCount(), 0);
    EXPECT_FALSE(f.model.IndexOf(f.root).isValid());
    f.model.SetTree(&f.tree);

    const auto root = f.model.index(0, 0);
    EXPECT_EQ(f.model.rowCount(), 1);
    EXPECT_FALSE(f.model.index(1, 0).isValid());
    const auto site = f.model.index(0, 0, root);
    EXPECT_EQ(f.model.rowCount(site), 2);
    for (const int row : {-1, 2}) EXPECT_FALSE(f.model.index(row, 0, site).isValid());
    EXPECT_FALSE(f.model.index(0, 1, site).isValid());
    for (NodeId node = 0; node < f.tree.Size(); ++node) {
        const auto index = f.model.IndexOf(node);
        EXPECT_EQ(CacheTreeModel::NodeOf(index), node);
        EXPECT_EQ(f.model.index(index.row(), 0, index.parent()), index);
    }
    EXPECT_EQ(CacheTreeModel::NodeOf({}), kNoNode);

    f.model.SetTree(nullptr);
    EXPECT_EQ(f.model.rowCount(), 0);
}

TEST(CacheTreeModel, TellsTheViewWhichRowsStayLeaves)
{
    Fixture f;
    f.model.SetTree(&f.tree);
    const auto isLeaf = [&](NodeId node) {
        return f.model.IndexOf(node).flags().testFlag(Qt::ItemNeverHasChildren);
    };
    EXPECT_FALSE(isLeaf(f.root) || isLeaf(f.site) || isLeaf(f.entry));
    EXPECT_TRUE(isLeaf(f.below) && isLeaf(f.folder));
    EXPECT_EQ(f.model.IndexOf(f.site).data(Qt::AccessibleTextRole), "Site");
    EXPECT_EQ(f.model.IndexOf(f.entry).data().toString(), "a (0%) Remains");
    EXPECT_FALSE(f.model.IndexOf(f.site).data(Qt::ToolTipRole).isValid());
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
