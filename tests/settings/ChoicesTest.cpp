// The user's choices: the servers to remember and the options.
#include "settings/OptionChoices.h"
#include "settings/ServerList.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

TEST(RememberServer, PutsTheChosenOneFirstAndKeepsTheOrderOfTheOthers)
{
    const struct {
        int most;
        std::string chosen;
        Names box, remembered;
    } cases[] = {
        {3, "C", {"A", "B", "C"}, {"C", "A", "B"}},
        {3, "D", {"A", "B", "C"}, {"D", "A", "B"}},
        {0, "D", {"A"}, {"old"}},
        {10, " D ", {" A", "D", " D "}, {"D", "A", "D"}},
    };
    for (const auto& one : cases) {
        Settings settings;
        settings.RememberServers = one.most;
        settings.Servers = {"old"};
        RememberServer(settings, one.chosen, one.box);
        EXPECT_EQ(settings.Servers, one.remembered) << one.chosen;
        EXPECT_EQ(settings.LastServer, one.chosen);
    }
    Settings settings;
    settings.Servers = {"A", "B"};
    RememberServer(settings, settings.Servers[1], settings.Servers);  // its own list and text
    EXPECT_EQ(settings.Servers, (Names{"B", "A"}));
}

TEST(ParseRememberServers, TakesWholeNumbersFrom0To200)
{
    for (const auto& [text, number] : {std::pair("200", 200), {"  7 ", 7}, {"+7", 7}, {"007", 7}, {"-0", 0}})
        EXPECT_EQ(ParseRememberServers(text), number) << text;
    for (const char* wrong :
         {"201", "-1", "", " ", "1.5", "1e2", "0x10", "1 0", "+", "+-1", "99999999999999999999", "١٠"})
        EXPECT_EQ(ParseRememberServers(wrong), std::nullopt) << wrong;
}

}  // namespace
