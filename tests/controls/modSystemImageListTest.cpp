#include "controls/modSystemImageList.h"

#include <gtest/gtest.h>

#include <QTreeWidget>

namespace {

TEST(modSystemImageList, KnowsATypeByItsExtensionAlone)
{
    modSystemImageList icons;
    const auto index = [&](const char* name) { return icons.IconIndex(QString::fromUtf8(name), 1); };
    EXPECT_GT(index(".txt"), 0);
    EXPECT_EQ(index(".TXT"), index("/no/such/readme.txt"));
    EXPECT_NE(index(".txt"), index(".png"));
    for (const auto* const name :
         {"", ".", "txt", ".no-such-type", "..", ".txt.", ".a/b", ".t\xC3\xA4xt", ".\n"})
        EXPECT_EQ(index(name), 0) << name;
    EXPECT_EQ(icons.IconIndex(u'.' + QString(5'000'000, u'x'), 1), 0);
    for (const int flags : {0, 1}) {
        const auto list = icons.SystemImageList(flags);
        EXPECT_EQ(list->Extent(), flags ? 16 : 32);
        for (const int image : {-1, 0, index(".png"), 9999})
            EXPECT_FALSE(list->Icon(image).pixmap(list->Extent()).isNull()) << image;
    }
    EXPECT_EQ(icons.SystemImageList(1)->Icon(9999).cacheKey(), icons.SystemImageList(1)->Icon(0).cacheKey());
}

TEST(modSystemImageList, GivesAViewListsThatItKeeps)
{
    using Kind = modSystemImageList::Kind;
    QTreeWidget view;
    new QTreeWidgetItem(&view, {QStringLiteral("txt")});
    {
        modSystemImageList icons;
        EXPECT_FALSE(modSystemImageList::SetItem(view, {0, 0})) << "no list yet";
        EXPECT_EQ(modSystemImageList::SetImageList(view, icons.SystemImageList(1), Kind::Small), nullptr);
        icons.AttachSystemImageList(view);
        EXPECT_EQ(modSystemImageList::SetImageList(view, icons.SystemImageList(0), Kind::Small), nullptr);
        EXPECT_EQ(view.iconSize(), QSize(16, 16));

        const int image = icons.IconIndex(QStringLiteral(".txt"), 1);
        EXPECT_TRUE(modSystemImageList::SetItem(view, {0, image}));
        EXPECT_EQ(view.topLevelItem(0)->icon(0).cacheKey(), icons.SystemImageList(1)->Icon(image).cacheKey());
    }
    EXPECT_TRUE(modSystemImageList::SetItem(view, {0, 0})) << "the view's lists outlive the owner";
    modSystemImageList::DetachSystemImageList(view);
    EXPECT_NE(modSystemImageList::SetImageList(view, {}, Kind::Small), nullptr);
}

}  // namespace
