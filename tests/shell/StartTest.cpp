// What the program starts with: site numbers, the server's sites, the division of the window.
#include "shell/ClientHeights.h"
#include "shell/OfferedSites.h"
#include "shell/SiteNumbers.h"
#include "support/TestStore.h"
#include "zentrel/EmbeddedTransport.h"

namespace {

using Numbers = std::vector<std::int32_t>;

TEST(SiteNumbers, AreDigitsWithCommasBetweenThem)
{
    EXPECT_EQ(*ParseSiteNumbers("1"), Numbers{1});
    EXPECT_EQ(*ParseSiteNumbers("3,1,2147483647"), (Numbers{3, 1, 2147483647}));
    for (const char* wrong :
         {"", "0", "-1", "01", "1,", ",1", "1;2", "1 ,2", "2147483648", "all", "1.5", "+1"})
        EXPECT_FALSE(ParseSiteNumbers(wrong)) << wrong;
}

TEST(OfferedSites, AreTheNumberedKeysInNumericOrder)
{
    TestStore store;
    for (const std::uint32_t site : {10U, 2U, 1U}) store.PutSite(site, "site");
    store.Put("LM/W3SVC/Info", {});
    zentrel::ServerAdmin server(std::make_shared<zentrel::EmbeddedTransport>(store.Folder(), "here"));
    EXPECT_FALSE(OfferedSites(server));
    ASSERT_TRUE(server.Connect(""));
    EXPECT_EQ(*OfferedSites(server), (Numbers{1, 2, 10}));
}

TEST(SplitterHeight, IsWhatTheOthersLeave)
{
    EXPECT_EQ(SplitterHeight({700, 40, 20, 30}), 610);
    EXPECT_EQ(SplitterHeight({700, {}, 20, 30}), 650);
    EXPECT_EQ(SplitterHeight({700, {}, {}, 30}), 670);
    EXPECT_EQ(SplitterHeight({100.4, 10.4, 10.4, 10.4}), 70);  // 100, 89.6 -> 90, 79.6 -> 80, 69.6 -> 70
    EXPECT_EQ(SplitterHeight({90, 40, 20, 30}), 0);
    EXPECT_EQ(SplitterHeight({89, 40, 20, 30}), std::nullopt);
}

}  // namespace
