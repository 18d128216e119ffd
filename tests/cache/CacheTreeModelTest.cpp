#include "cache/CacheTreeModel.h"

#include <gtest/gtest.h>

namespace {

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

}  // namespace
