// What the program starts with: the server's sites, the division of the window.
#include "shell/ClientHeights.h"
#include "shell/OfferedSites.h"
#include "support/TestStore.h"
#include "zentrel/EmbeddedTransport.h"

namespace {

using Numbers = std::vector<std::int32_t>;

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
    EXPECT_EQ(SplitterHeight({700, {}, 20, 30}), 650);
    EXPECT_EQ(SplitterHeight({100.4, 10.4, 10.4, 10.4}), 70);  // 100, 89.6 -> 90, 79.6 -> 80, 69.6 -> 70
    EXPECT_EQ(SplitterHeight({90, 40, 20, 30}), 0);
    EXPECT_EQ(SplitterHeight({89, 40, 20, 30}), std::nullopt);
}

}  // namespace
