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

    // Of a server that never comes to an end, what came first: 1 and 10.
    EXPECT_EQ(*OfferedSites(server, {.sites = 2}), (Numbers{1, 10}));
    EXPECT_EQ(*OfferedSites(server, {.keys = 1}), (Numbers{1}));
}

}  // namespace
