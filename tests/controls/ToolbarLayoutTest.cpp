#include "controls/ToolbarLayout.h"

#include <gtest/gtest.h>

namespace {

using Items = ToolbarLayout::Items;

const Items kStandard{"Connect", "Stop", "", "Remove", "", "Help"};

bool Restore(ToolbarLayout& layout, const std::string& text)
{
    return layout.Restore({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::string Text(const ToolbarLayout& layout)
{
    const auto bytes = layout.Bytes();
    return {bytes.begin(), bytes.end()};
}

TEST(ToolbarLayout, HoldsAButtonOnceAndSeparatorsAsWanted)
{
    ToolbarLayout layout(kStandard);
    EXPECT_EQ(layout.Available(), Items{""});
    EXPECT_FALSE(layout.Insert("Stop", 0)) << "stands there already";
    EXPECT_FALSE(layout.Insert("Sites", 0)) << "no such button";
    EXPECT_FALSE(layout.Insert("", 7) || layout.Remove(6) || layout.Move(6, 0) || layout.Move(0, 6));
    EXPECT_TRUE(layout.IsStandard());

    EXPECT_TRUE(layout.Remove(3) && layout.Remove(0) && layout.Move(0, 3));
    EXPECT_EQ(layout.Available(), (Items{"", "Connect", "Remove"})) << "in default order";
    EXPECT_EQ(layout.Current(), (Items{"", "", "Help", "Stop"}));
    for (std::size_t i = 2; i < ToolbarLayout::kMostSeparators; ++i) EXPECT_TRUE(layout.Insert("", 0));
    EXPECT_FALSE(layout.Insert("", 0));
    auto again = ToolbarLayout(kStandard);
    EXPECT_TRUE(again.Restore(layout.Bytes())) << "the fullest bar can be stored";
    EXPECT_EQ(again.Current(), layout.Current());
    layout.Reset();
    EXPECT_EQ(layout.Current(), kStandard);
}

TEST(ToolbarLayout, IsStoredForOtherVersions)
{
    const struct {
        const char* what;
        std::string stored;
        Items expected;
    } cases[] = {
        {"as it was",
         "button Help\nseparator\nbutton Stop\nspare Connect\nspare Remove\n",
         {"Help", "", "Stop"}},
        {"an empty bar", "spare Connect\nspare Stop\nspare Remove\nspare Help\n", {}},
        {"new buttons come where they usually are",
         "button Help\nbutton Stop\nspare Connect\n",
         {"Help", "Stop", "Remove"}},
        {"new before all others",
         "separator\nbutton Stop\nspare Remove\nspare Help\n",
         {"Connect", "", "Stop"}},
        {"a later version's words and buttons",
         "size 32\nbutton Sites\nbutton Connect\nseparator thick\nspare Log\nspare Stop\nspare Remove\n"
         "button Help\n",
         {"Connect", "Help"}},
    };
    for (const auto& stored : cases) {
        ToolbarLayout layout(kStandard);
        EXPECT_TRUE(Restore(layout, "toolbar 1\n" + stored.stored + "end\n")) << stored.what;
        EXPECT_EQ(layout.Current(), stored.expected) << stored.what;
        ToolbarLayout again(kStandard);
        EXPECT_TRUE(again.Restore(layout.Bytes())) << stored.what;
        EXPECT_EQ(again.Current(), stored.expected) << stored.what;
    }
    EXPECT_EQ(Text(ToolbarLayout({"A", "", "B"})), "toolbar 1\nbutton A\nseparator\nbutton B\nend\n")
        << "what stands on users' disks";
}

TEST(ToolbarLayout, TakesTheDefaultForDamagedBytes)
{
    auto removed = ToolbarLayout(kStandard);
    ASSERT_TRUE(removed.Remove(1));
    const auto whole = Text(removed);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        auto layout = removed;
        EXPECT_FALSE(Restore(layout, whole.substr(0, size))) << size;
        EXPECT_TRUE(layout.IsStandard()) << size;
    }
    std::string separators;
    for (std::size_t i = 0; i <= ToolbarLayout::kMostSeparators; ++i) separators += "separator\n";
    for (const auto& text :
         {std::string("toolbar 2\nbutton Help\nend\n"), "toolbar 1\n" + separators + "end\n",
          std::string("toolbar 1\nbutton Help\nbutton Help\nend\n"), std::string(9, '\xff')}) {
        auto layout = removed;
        EXPECT_FALSE(Restore(layout, text)) << text;
        EXPECT_TRUE(layout.IsStandard()) << text;
    }
}

}  // namespace
