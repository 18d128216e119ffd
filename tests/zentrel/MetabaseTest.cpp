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
    properties.SetText(Prop::ServerComment, "comment");
    store.Put(deep, properties);

    auto open = Metabase::Open(store.Folder(), Metabase::Access::Read);
    ASSERT_TRUE(open);
    auto txn = (*open)->BeginRead();
    const auto row = txn->Find(deep);
    ASSERT_TRUE(row && *row);
    EXPECT_EQ(Record(*FindProperty((*row)->properties, Prop::ServerComment)).Text(), "comment");
    EXPECT_EQ(Record(*FindProperty((*row)->properties, Prop::ServerBindings)).TextList(),
              (std::vector<std::string>{"*:80:", "", "10.0.0.1:443:h"}));
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

TEST(Admin, TheCacheShowsOnlyWhatLeadsToCachedUrls)
{
    TestStore store;
    store.PutSite(1, "one");
    store.PutSite(2, "two");
    store.PutVirtualDir("LM/W3SVC/1/Root/empty", "/srv/e");
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
    store.Put("LM/W3SVC/1/Root/empty/inner/a.htm", TestStore::Entry(2, 2, 1));
    EXPECT_EQ(list(CacheAdmin(transport), "/LM/W3SVC/1/Root"), "empty|z.htm|");
    EXPECT_EQ(list(ServerAdmin(transport), "/LM/W3SVC/1/Root/"), "empty|z.htm|");
}
