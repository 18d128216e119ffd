#include "stats/PanelArrangement.h"
#include "stats/PanelItems.h"
#include "stats/WrapTipText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

// Prints the marks of the items 0 to 3 and of "&All", and which panels are shown.
struct Window : PanelItemsHost {
    std::array<bool, 6> marks{true, true, true, true, false, true};
    std::array<bool, 4> panels{true, true, true, true};
    PanelItems items{*this};

    void CheckItem(std::size_t item, bool isChecked) override { marks.at(item) = isChecked; }
    void ShowPanel(std::size_t panel, bool isShown) override { panels.at(panel) = isShown; }
    std::string Click(std::initializer_list<std::size_t> clicks)
    {
        for (const auto item : clicks) items.Click(item);
        std::string text;
        for (const std::size_t item : {0, 1, 2, 3, 5}) {
            EXPECT_EQ(items.IsChecked(item), marks[item]);
            text += marks[item] ? 'x' : '.';
        }
        EXPECT_TRUE(std::equal(panels.begin(), panels.end(), marks.begin()));
        return text;
    }
};

TEST(PanelItems, AllFollowsTheFourWhenTheyAgree)
{
    Window window;
    EXPECT_EQ(window.Click({1}), "x.xxx");
    EXPECT_EQ(window.Click({1}), "xxxxx");
    EXPECT_EQ(window.Click({1, 5}), ".....");
    EXPECT_EQ(window.Click({0, 1, 2}), "xxx..");
    EXPECT_EQ(window.Click({4, 6, 99}), "xxx..") << "no panels";
    EXPECT_EQ(window.Click({3}), "xxxxx");
    EXPECT_EQ(window.Click({0, 1, 2, 3}), ".....");
    EXPECT_EQ(window.Click({2, 5}), "xxxxx");
    EXPECT_EQ(window.Click({5}), ".....");
}

TEST(PanelArrangement, IsTwoBytesForEachPanel)
{
    const PanelPlace places[4] = {{true, 70}, {false, 0}, {}, {true, 100}};
    std::string text;
    for (const auto byte : PanelBytes(places)) text += std::to_string(std::to_integer<int>(byte)) + " ";
    EXPECT_EQ(text, "1 70 0 0 1 50 1 100 ");
}

TEST(WrapTipText, BreaksBehindTheBlankThatLeavesTheBetterLine)
{
    const auto word = [](std::size_t length, const std::string& character) {
        std::string text;
        while (length-- > 0) text += character;
        return text;
    };
    const std::string cut = "\r\n";
    const std::pair<std::string, std::string> kCases[] = {
        {"", ""},
        {word(200, "a"), word(200, "a")},
        {word(60, "a") + " " + word(60, "b"), word(60, "a") + " " + word(60, "b")},
        // Of the word at character 50, 9 of 20 characters stand before it, then 8 of 18.
        {word(39, "a") + " " + word(20, "b") + " c", word(39, "a") + " " + cut + word(20, "b") + " c"},
        {word(40, "a") + " " + word(18, "b") + " c", word(40, "a") + " " + word(18, "b") + " " + cut + "c"},
        {word(49, "\u00F6") + " b c", word(49, "\u00F6") + " " + cut + "b c"},  // characters, not bytes
        {word(45, "a") + cut + word(45, "b") + " " + word(5, "c") + " d",
         word(45, "a") + cut + word(45, "b") + " " + word(5, "c") + " " + cut + "d"},
        {"\xFF\x80 \xC3", "\xFF\x80 \xC3"}};
    for (const auto& [text, wrapped] : kCases) EXPECT_EQ(WrapTipText(text), wrapped);
}

}  // namespace
