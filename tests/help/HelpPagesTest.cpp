#include "help/HelpBook.h"

#include "base/SystemError.h"
#include "stats/CounterExplanations.h"
#include "stats/CounterList.h"
#include "support/HelpTables.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

// The pages that the program brings along, held against the program.

namespace {

// The sources below a folder, texts that stand side by side joined to one.
std::string SourcesBelow(const std::filesystem::path& folder)
{
    std::string sources;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.path().extension() == ".cpp") sources += HiveRig::BytesIn(entry.path()) + '\n';
    return std::regex_replace(sources, std::regex("\"\\s*\n\\s*\""), "");
}

// The texts in quotes, each line of them a line, without accelerator signs.
std::string TextsIn(std::string sources)
{
    sources = std::regex_replace(sources, std::regex(R"('(\\.|[^'\\])')"), "");
    sources = std::regex_replace(sources, std::regex(R"((\\r)?\\n)"), "\"\n\"");
    std::string texts = "\n";
    static const std::regex kText(R"re("((?:[^"\\\n]|\\.)*)")re");
    for (std::sregex_iterator it(sources.begin(), sources.end(), kText), end; it != end; ++it)
        texts += std::regex_replace((*it)[1].str(), std::regex("&"), "") + '\n';
    return texts;
}

const std::filesystem::path kSources = QUILLET_SOURCES;

TEST(HelpPages, AllAreInTheContentsAndAllOfTheContentsAreThere)
{
    std::istringstream contents{std::string(PackedContents())};
    std::set<std::string> listed;
    for (std::string line; std::getline(contents, line);)
        listed.emplace(TrimBlanks(std::string_view(line).substr(0, line.find(':'))));
    std::set<std::string> packed;
    for (const auto& page : PackedPages()) packed.emplace(page.key);
    EXPECT_EQ(listed, packed);
}

TEST(HelpPages, EveryLinkLeadsToAPageAndNothingIsEmbedded)
{
    const HelpBook book;
    int links = 0;
    static const std::regex kLink(R"(\]\(([^)]*)\))");
    for (const auto& page : book.Pages()) {
        EXPECT_EQ(page.text.find("!["), std::string::npos) << page.key;
        EXPECT_FALSE(std::regex_search(page.text, std::regex("<[a-z/!]"))) << page.key;
        for (std::sregex_iterator it(page.text.begin(), page.text.end(), kLink), end; it != end;
             ++it, ++links)
            EXPECT_NE(book.Find(KeyOfLink((*it)[1].str())), nullptr) << page.key << ": " << (*it)[1];
    }
    EXPECT_GT(links, 40);
}

TEST(HelpPages, EveryWindowHasItsPage)
{
    const HelpBook book;
    for (const auto* name : {"frmMain", "frmServer", "frmOptions", "frmFileInfo", "frmDbExport", "frmReport",
                             "frmHelp", "frmAbout", "CountersConsole", "CustomizeDialog", "MessageBox"})
        EXPECT_NE(book.PageOf(name), nullptr) << name;
}

TEST(HelpPages, EveryCounterIsExplained)
{
    const auto rows = TableRows(HelpBook(), "counters");
    const auto counters = MakeCounterList();
    ASSERT_EQ(counters.size(), 19U);
    std::size_t heads = 0;
    for (const auto& row : rows) heads += row.at(1) == "Full name" ? 1 : 0;
    EXPECT_EQ(rows.size(), counters.size() + heads);
    for (const auto& counter : counters) {
        const auto name = counter.path.substr(counter.path.rfind('\\') + 1);
        ASSERT_TRUE(ExplainCounter(name)) << name;
        const auto label = counter.label.empty() ? name : counter.label;
        const auto hasBoth = [&](const auto& row) { return row.at(0) == label && row.at(1) == name; };
        EXPECT_EQ(std::count_if(rows.begin(), rows.end(), hasBoth), 1) << name;
    }
}

// What a message must have of the program's texts: all but the signs for what differs each time, from the
// beginning of a line, and to the end of one.
std::vector<std::string> PiecesOf(const std::string& message)
{
    constexpr std::string_view kBlank = "…";
    std::vector<std::string> pieces;
    auto rest = '\n' + message + '\n';
    for (std::size_t at = 0; at != std::string::npos;) {
        at = rest.find(kBlank);
        if (auto piece = rest.substr(0, at); piece.size() > 1) pieces.push_back(std::move(piece));
        if (at != std::string::npos) rest.erase(0, at + kBlank.size());
    }
    return pieces;
}

TEST(HelpPages, EveryMessageAndErrorOfTheTroubleshootingIsInTheProgram)
{
    const auto texts = TextsIn(SourcesBelow(kSources));
    const auto page = HelpBook().TextOf("troubleshooting");
    static const std::regex kHeading("\n### ([^\n]*)");
    int messages = 0;
    for (std::sregex_iterator it(page.begin(), page.end(), kHeading), end; it != end; ++it, ++messages) {
        const auto message = (*it)[1].str();
        const auto pieces = PiecesOf(message);
        std::size_t longest = 0;
        for (const auto& piece : pieces) {
            EXPECT_NE(texts.find(piece), std::string::npos) << message;
            longest = std::max(longest, piece.size());
        }
        EXPECT_GT(longest, 10U) << message;
    }
    EXPECT_GE(messages, 23);
    const auto errors = TableRows(HelpBook(), "troubleshooting", "## The second line");
    ASSERT_GT(errors.size(), 10U);
    for (std::size_t i = 1; i < errors.size(); ++i)
        EXPECT_EQ(SystemText(static_cast<std::uint32_t>(std::stoul(errors[i].at(0)))), errors[i].at(1));
}

TEST(HelpPages, EveryMessageBoxIsInTheTroubleshooting)
{
    auto page = HelpBook().TextOf("troubleshooting");
    const auto sources = SourcesBelow(kSources);
    static const std::regex kBox(R"re((?:(?:ShowError|boxes\.Show)\([^;"]*?(?:Translate\("\w+",\s*)?|)re"
                                 R"re((?:text|m_notice) = tr\()"([^"%\\]*))re");
    int boxes = 0;
    for (std::sregex_iterator it(sources.begin(), sources.end(), kBox), end; it != end; ++it) {
        const auto text = (*it)[1].str();
        if (text.empty() || text[0] == '(') continue;  // as where a box is put together
        ++boxes;
        EXPECT_NE(page.find("\n### " + text), std::string::npos) << text;
    }
    EXPECT_GT(boxes, 18);
}

TEST(HelpPages, EveryKeyOfTheMainWindowAndTheTreeNamesACommand)
{
    const auto texts = TextsIn(SourcesBelow(kSources / "shell"));
    const HelpBook book;
    const auto others = TableRows(book, "keyboard", "## The panels").size();
    auto rows = TableRows(book, "keyboard");
    rows.resize(rows.size() - others);
    std::set<std::string> keys;
    int commands = 0;
    for (const auto& row : rows) {
        static const std::regex kKey(R"((Ctrl\+|Shift\+)?(F\d|[A-Z]))");
        if (!std::regex_match(row.at(0), kKey)) continue;
        ++commands;
        EXPECT_TRUE(keys.insert(row.at(0)).second) << row.at(0);
        EXPECT_NE(texts.find('\n' + row.at(1) + '\n'), std::string::npos) << row.at(1);
    }
    EXPECT_EQ(commands, 16);
}

}  // namespace
