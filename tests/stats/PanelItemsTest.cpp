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
    const auto word = [](std::size_t length, char c) { return std::string(length, c); };
    const std::string cut = "\r\n";
    const std::tuple<std::string, std::string> kCases[] = {
        {"", ""},
        {word(200, 'a'), word(200, 'a')},
        {word(40, 'a') + " " + word(60, 'b'), word(40, 'a') + " " + word(60, 'b')},
        {word(60, 'a') + " " + word(60, 'b'), word(60, 'a') + " " + word(60, 'b')},
        // Of the word at character 50, 9 of 20 characters stand before it, then 8 of 18.
        {word(39, 'a') + " " + word(20, 'b') + " c", word(39, 'a') + " " + cut + word(20, 'b') + " c"},
        {word(40, 'a') + " " + word(18, 'b') + " c", word(40, 'a') + " " + word(18, 'b') + " " + cut + "c"},
        {word(49, 'a') + " b c", word(49, 'a') + " " + cut + "b c"},
        {word(45, 'a') + cut + word(45, 'b') + " " + word(5, 'c') + " d",
         word(45, 'a') + cut + word(45, 'b') + " " + word(5, 'c') + " " + cut + "d"}};
    for (const auto& [text, wrapped] : kCases) EXPECT_EQ(WrapTipText(text), wrapped);
}

TEST(WrapTipText, CountsCharactersAndKeepsEveryOne)
{
    std::string ascii, letters;
    for (int i = 0; i < 40; ++i) {
        ascii += std::string(static_cast<std::size_t>(i % 9), 'o') + " ";
        for (int k = 0; k < i % 9; ++k) letters += "\xC3\xB6";
        letters += ' ';
    }
    auto wrapped = WrapTipText(letters);
    EXPECT_EQ(std::count(wrapped.begin(), wrapped.end(), '\n'), 3);
    for (std::size_t at; (at = wrapped.find("\xC3\xB6")) != std::string::npos;) wrapped.replace(at, 2, "o");
    EXPECT_EQ(wrapped, WrapTipText(ascii));
    std::erase_if(wrapped, [](char c) { return c == '\r' || c == '\n'; });
    EXPECT_EQ(wrapped, ascii);
    EXPECT_EQ(WrapTipText("\xFF\x80 \xC3"), "\xFF\x80 \xC3");
}

}  // namespace
