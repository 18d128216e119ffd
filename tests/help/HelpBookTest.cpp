#include "help/HelpBook.h"

#include "help/PrintHelp.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

constexpr PackedPage kPages[] = {
    {"apple", "# Äpfel und Birnen\n\nRed **fruit**, see [the\npears](pear.md).\n\n| a | b |\n|---|---|\n| "
              "`x` | y |\n"},
    {"lost", "# In no contents\n\nFruit, too.\n"},
    {"pear", "# Pears\n\n## Green\n\nÄPFEL are no pears. Fruit.\n"},
    {"stone", "# Fruit with a stone\n\nPlums.\n"},
};
constexpr std::string_view kContents =
    "stone: frmStone Other\n  pear: frmPear\n  nowhere: frmNowhere\n\napple\nstone\n";

TEST(HelpBook, PagesComeInTheOrderOfTheContentsAndNoneIsLost)
{
    const HelpBook book(kContents, kPages);
    std::string order;
    for (const auto& page : book.Pages())
        order += page.key + std::to_string(page.depth) + '<' + page.title + '>';
    EXPECT_EQ(order, "stone0<Fruit with a stone>pear1<Pears>apple0<Äpfel und Birnen>lost0<In no contents>");
    EXPECT_EQ(book.TextOf("pear"), kPages[2].text);
    EXPECT_EQ(book.Find("nowhere"), nullptr);
    EXPECT_NE(book.TextOf("nowhere").find("There is no such page"), std::string::npos);
    EXPECT_EQ(book.PageOf("frmPear")->key, "pear");
    EXPECT_EQ(book.PageOf("frmNowhere"), nullptr);
}

TEST(HelpBook, SearchFindsAllWordsInAnyCaseTitlesFirst)
{
    const HelpBook book(kContents, kPages);
    const struct {
        std::string_view words, keys;
    } cases[] = {
        {"fruit", "stone pear apple lost "},
        {"  FRUIT   pears ", "pear apple "},
        {"äpfel", "apple pear "},
        {"see the pears", "apple "},  // over the end of a line, within a link
        {"pear.md", ""},
        {"pears seen by grapes", ""},
        {"fruit of GRAPES, green", "pear "},  // no page has all: half of them will do
        {"green fruit grapes pears", "pear apple "},
        {"\xc3", "apple pear "},  // half a character is looked for like any bytes
    };
    for (const auto& [words, keys] : cases) {
        std::string found;
        for (const auto& hit : book.Search(words)) found += hit.page->key + ' ';
        EXPECT_EQ(found, keys) << words;
    }
}

TEST(HelpBook, ASnippetIsPlainTextAroundThePlace)
{
    EXPECT_EQ(PlainHelpText(kPages[0].text), "Red fruit, see the pears. a b x y");
    EXPECT_EQ(LongestRun("no, cannot open the file", "cannot see  the file"), "the file");
    EXPECT_EQ(LongestRun("a text", "no words"), "");
    std::string text = "# T\n\n";
    for (int i = 0; i < 100; ++i) text += "öööö\n";
    text += "needle *here*\n";
    for (int i = 0; i < 100; ++i) text += "üüüü\n";
    const PackedPage page{"t", text};
    const auto hits = HelpBook("t", {&page, 1}).Search("NEEDLE");
    ASSERT_EQ(hits.size(), 1U);
    const auto& snippet = hits[0].snippet;
    EXPECT_TRUE(snippet.starts_with("… öööö ")) << snippet;
    EXPECT_NE(snippet.find(" needle here üüüü "), std::string::npos) << snippet;
    EXPECT_TRUE(snippet.ends_with(" üüüü …")) << snippet;
    EXPECT_LT(snippet.size(), 200U);
}

TEST(PrintHelp, PrintsAPageOrTheContents)
{
    const auto print = [](const std::string& name) {
        std::ostringstream out;
        std::ostringstream errors;
        const int code = PrintHelpPage(out, errors, name);
        EXPECT_EQ(errors.str().empty(), code == 0) << errors.str();
        return std::pair(code, out.str());
    };
    const HelpBook book;
    EXPECT_EQ(print("counters"), std::pair(0, book.TextOf("counters")));
    EXPECT_EQ(print("frmOptions"), print("options"));
    EXPECT_EQ(print("nowhere"), std::pair(2, std::string()));
    const auto [code, list] = print("");
    EXPECT_EQ(code, 0);
    EXPECT_NE(list.find("\n  deleting "), std::string::npos) << list;
}

}  // namespace
