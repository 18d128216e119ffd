#include "zentrel/Metabase.h"

#include "support/TestStore.h"
#include "zentrel/Admin.h"
#include "zentrel/EmbeddedTransport.h"

#include <fstream>

using namespace zentrel;

namespace {

std::uint32_t OpenCode(const std::filesystem::path& folder)
{
    const auto store = Metabase::Open(folder, Metabase::Access::Read);
    return store ? 0 : store.error().code;
}

}  // namespace

TEST(Metabase, KeysAndPropertiesOutliveTheProcessThatWroteThem)
{
    TestStore store;
    std::string deep = "top";
    for (int i = 0; i < 300; ++i) deep += "/" + std::string(255, static_cast<char>('a' + i % 26));
    PropertySet properties;
    properties.SetTextList(Prop::ServerBindings, {"*:80:", "", "10.0.0.1:443:h"});
    properties.SetNumber(Prop::ServerState, 2);
    properties.SetText(Prop::ServerComment, "c");
    properties.SetText(Prop::ServerComment, "comment");
    store.Put(deep, properties);

    auto open = Metabase::Open(store.Folder(), Metabase::Access::Read);
    ASSERT_TRUE(open);
    auto txn = (*open)->BeginRead();
    const auto row = txn->Find(deep);
    ASSERT_TRUE(row && *row);
    EXPECT_EQ(Record(*FindProperty((*row)->properties, Prop::ServerComment)).Text(), "comment");
    EXPECT_EQ(Record(*FindProperty((*row)->properties, Prop::ServerState)).Number(), 2U);
    EXPECT_EQ(Record(*FindProperty((*row)->properties, Prop::ServerBindings)).TextList(),
              (std::vector<std::string>{"*:80:", "", "10.0.0.1:443:h"}));
    EXPECT_FALSE(*txn->Find(deep + "/" + std::string(300, 'x')));
    EXPECT_EQ((*txn->Find("top"))->childCount, 1U);
}

TEST(Metabase, RemovingKeysKeepsTheCountsRight)
{
    TestStore store;
    for (const char* path : {"a/x", "a/y", "a/y/z"}) store.Put(path, PropertySet());
    auto open = Metabase::Open(store.Folder(), Metabase::Access::Write);
    {
        auto dropped = (*open)->BeginWrite();
        ASSERT_TRUE(dropped->RemoveKey("a/x"));
    }  // never committed
    auto txn = (*open)->BeginWrite();
    EXPECT_EQ((*txn->Find("a"))->childCount, 2U);
    EXPECT_EQ(txn->RemoveKey("a/y").error().code, Code::NotSupported);
    ASSERT_TRUE(txn->RemoveKey("a/y/z") && txn->RemoveKey("a/y") && txn->RemoveKey("a/nothing"));
    ASSERT_TRUE(txn->Commit());
    EXPECT_EQ((*(*open)->BeginRead()->Find("a"))->childCount, 1U);
}

TEST(Metabase, ForeignAndDamagedFilesAreRefusedAndLeftAlone)
{
    TestStore store;
    for (int i = 0; i < 400; ++i)
        store.Put("k/" + std::string(200, 'n') + std::to_string(i), TestStore::Entry(1, 2, 3));
    const auto file = store.Folder() / "metabase.mdb";
    const auto size = std::filesystem::file_size(file);
    std::filesystem::resize_file(file, size / 2);
    EXPECT_EQ(OpenCode(store.Folder()), Code::FileCorrupt);
    EXPECT_EQ(std::filesystem::file_size(file), size / 2);
    for (const std::string& bytes : {std::string(), std::string("short"), std::string(100'000, 'x')}) {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
        EXPECT_EQ(OpenCode(store.Folder()), Code::FileCorrupt) << bytes.size();
        EXPECT_EQ(std::filesystem::file_size(file), bytes.size());
    }
    std::filesystem::remove(file);
    EXPECT_EQ(OpenCode(store.Folder()), Code::FileNotFound);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(KeyPath, TakesTheDocumentedFormsAndRefusesTheRest)
{
    for (const char* good : {"", "/", "LM", "/LM/W3SVC", "LM/W3SVC/", "/LM/W3SVC/1/Root/", "a/\xC3\xA9"})
        EXPECT_TRUE(CheckPath(good)) << good;
    const std::string nul("a/b\0c", 5);
    for (const std::string& bad :
         {std::string("a//b"), std::string("//a"), std::string("a//"), std::string("a/../b"),
          std::string("."), nul, std::string("a/\xFF"), std::string("a/") + std::string(256, 'x')})
        EXPECT_EQ(CheckPath(bad).error().code, Code::InvalidName) << bad;
    EXPECT_EQ(*CheckPath("/LM/W3SVC/"), "LM/W3SVC");
}

TEST(Admin, OnlyTheLocalMachinesServerIsThereAndLookingMakesNothing)
{
    const auto folder = *TempFolder::Make("quillet-test");
    const auto transport = std::make_shared<EmbeddedTransport>(folder.Path() / "none", "HostName");
    ServerAdmin admin(transport);
    EXPECT_EQ(admin.ServerName(), "HostName");
    EXPECT_EQ(admin.GetData("/LM", 1).error().code, Code::ServerUnavailable);
    EXPECT_EQ(admin.Connect("").error().code, Code::ServerUnavailable);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "none"));

    TestStore store;
    store.PutSite(1, "one");
    store.PutSite(2, "two");
    CacheAdmin cache(std::make_shared<EmbeddedTransport>(store.Folder(), "HostName"));
    EXPECT_EQ(cache.Connect("web01").error().code, Code::ServerUnavailable);
    for (const char* name : {"hostname", "LOCALHOST", ".", ""}) EXPECT_TRUE(cache.Connect(name)) << name;
    for (const char* path : {"/LM/W3SVC", "LM/W3SVC/"}) EXPECT_TRUE(cache.OpenKey(path)) << path;
    EXPECT_EQ((*cache.GetData("/LM/W3SVC/2", Prop::ServerComment))->Text(), "two");
    EXPECT_FALSE(*cache.GetData("/LM/W3SVC/2", Prop::CacheId));
    EXPECT_EQ(cache.ResetCounters(1).error().code, Code::InvalidParameter);
}

TEST(Admin, TheCacheShowsOnlyWhatLeadsToCachedUrls)
{
    TestStore store;
    store.PutSite(1, "one");
    store.PutSite(2, "two");
    store.PutVirtualDir("LM/W3SVC/1/Root/empty", "/srv/e");
    store.PutVirtualDir("LM/W3SVC/1/Root/empty/inner", "/srv/i");
    const auto transport = std::make_shared<EmbeddedTransport>(store.Folder(), "h");
    const auto list = [&](auto&& admin, const char* path) {
        EXPECT_TRUE(admin.Connect(""));
        auto keys = admin.EnumKeys(path);
        std::string names;
        while (keys && keys->Next()) names += keys->Name() + "|";
        return names;
    };
    EXPECT_EQ(list(ServerAdmin(transport), "/LM/W3SVC"), "1|2|");
    EXPECT_EQ(list(CacheAdmin(transport), "/LM/W3SVC"), "");
    store.Put("LM/W3SVC/1/Root/z.htm", TestStore::Entry(1, 2, 1));
    EXPECT_EQ(list(CacheAdmin(transport), "/LM/W3SVC"), "1|");
    EXPECT_EQ(list(CacheAdmin(transport), "/LM/W3SVC/1/Root"), "z.htm|");
    store.Put("LM/W3SVC/1/Root/empty/inner/a.htm", TestStore::Entry(2, 2, 1));
    EXPECT_EQ(list(CacheAdmin(transport), "/LM/W3SVC/1/Root"), "empty|z.htm|");
    EXPECT_EQ(list(ServerAdmin(transport), "/LM/W3SVC/1/Root/"), "empty|z.htm|");

    CacheAdmin cache(transport);
    ASSERT_TRUE(cache.Connect(""));
    auto keys = cache.EnumKeys("LM/W3SVC/1/Root");
    EXPECT_EQ(*keys->Item(2), "z.htm");
    EXPECT_FALSE(keys->Item(0));
    EXPECT_FALSE(keys->Item(3));
}
