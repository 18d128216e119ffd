#include "base/SystemError.h"
#include "platform/RegistryStore.h"
#include "platform/Sqlite.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

// Hives with the value "v" = "kept" of the key "k".
class HiveFile : public testing::Test {
protected:
    void MakeHive(int values = 0)
    {
        const auto store = rig.Open();
        EXPECT_EQ(rig.trouble, "");
        const auto key = store->CreateKey(kCurrentUser, "k", kKeyAllAccess).key;
        EXPECT_EQ(SetText(*store, key, "v", "kept"), 0U);
        for (int i = 0; i < values; ++i)
            EXPECT_EQ(SetText(*store, key, std::to_string(i), std::string(500, 'x')), 0U);
    }

    static std::string Kept(RegistryStore& store)
    {
        return TextAt(store, store.OpenKey(kCurrentUser, "k", kKeyRead).key, "v");
    }

    // What a user can expect of every store that Open() gives.
    static void ExpectUsable(RegistryStore& store)
    {
        const auto key = store.CreateKey(kCurrentUser, "used", kKeyAllAccess).key;
        EXPECT_EQ(SetText(store, key, "v", "x"), 0U);
        EXPECT_EQ(TextAt(store, key, "v"), "x");
        EXPECT_EQ(store.DeleteKey(kCurrentUser, "used"), 0U);
    }

    static void ExpectReadOnly(RegistryStore& store)
    {
        EXPECT_EQ(Kept(store), "kept");
        EXPECT_EQ(store.CreateKey(kCurrentUser, "x", kKeyAllAccess).code, Code::AccessDenied);
        EXPECT_EQ(store.OpenKey(kCurrentUser, "k", kKeyWrite).code, Code::AccessDenied);
        EXPECT_EQ(SetText(store, kCurrentUser, "v", "x"), Code::AccessDenied);
        EXPECT_EQ(store.DeleteKey(kCurrentUser, "k"), Code::AccessDenied);
    }

    void ExpectTrouble(std::string_view words) const
    {
        EXPECT_NE(rig.trouble.find(words), std::string::npos) << rig.trouble;
    }

    void RunSql(const char* sql) const
    {
        sqlite3* raw = nullptr;
        EXPECT_EQ(sqlite3_open(rig.User().c_str(), &raw), SQLITE_OK);
        const sqlite::Connection db(raw);
        EXPECT_EQ(sqlite::Run(raw, sql), SQLITE_OK) << sqlite3_errmsg(raw);
    }

    void Overwrite(std::streamoff at, std::size_t size) const
    {
        std::fstream file(rig.User(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(at);
        file << std::string(size, '\xa5');
    }

    HiveRig rig;
};

TEST_F(HiveFile, IsMadeForThisUserOnlyAndStays)
{
    const auto file = rig.Folder() / "a" / "b" / "settings.hive";
    std::string trouble;
    ExpectUsable(*RegistryStore::Open(file, rig.Machine(), trouble));
    EXPECT_EQ(trouble, "");
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_FALSE(fs::exists(rig.Machine()));

    rig.Put(rig.User(), "");  // an empty file is a new one
    MakeHive();
    fs::rename(rig.User(), rig.Folder() / "target");
    fs::create_symlink(rig.Folder() / "target", rig.User());
    EXPECT_EQ(Kept(*rig.Open()), "kept");
    EXPECT_EQ(rig.trouble, "");
    EXPECT_TRUE(fs::is_symlink(rig.User()));
}

TEST_F(HiveFile, WhatCannotBeUsedIsMovedAsideWhole)
{
    const auto log = rig.User().native() + "-wal";
    const auto rubbish = [&](const std::string& bytes) {
        return [this, bytes, log] {
            rig.Put(rig.User(), bytes);
            rig.Put(log, "log");
        };
    };
    const auto sql = [this](const char* statement) { return [this, statement] { RunSql(statement); }; };
    const auto truncate = [&] { fs::resize_file(rig.User(), fs::file_size(rig.User()) / 2); };
    const struct {
        const char *trouble, *name;
        std::vector<std::function<void()>> damages;
    } kinds[] = {
        {"is no database",
         "not-a-database",
         {rubbish("x"), rubbish(std::string(99, '\0')), rubbish(std::string(100'000, 'r')),
          rubbish("SQLite format 3" + std::string(1, '\0') + std::string(5000, '\xff'))}},
        {"is from a newer version", "newer-version", {sql("PRAGMA user_version = 2")}},
        {"is damaged",
         "damaged",
         {truncate, [&] { Overwrite(4096, 3 * 4096); }, sql("DROP TABLE key_values"),
          sql("DELETE FROM keys WHERE id = 1"), sql("ALTER TABLE keys RENAME COLUMN folded TO other"),
          sql("PRAGMA user_version = 0")}},
    };
    for (const auto& [trouble, name, damages] : kinds) {
        std::size_t count = 0;
        for (const auto& damage : damages) {
            SCOPED_TRACE(name + std::to_string(++count));
            MakeHive(50);
            damage();
            const auto bytes = HiveRig::BytesIn(rig.User()), logged = HiveRig::BytesIn(log);
            ExpectUsable(*rig.Open());
            ExpectTrouble(trouble + std::string("; it was moved to"));
            const auto moved = rig.Named("settings.hive." + std::string(name) + "-2");
            EXPECT_EQ(moved.size(), count);
            EXPECT_TRUE(std::any_of(moved.begin(), moved.end(), [&](const auto& file) {
                return HiveRig::BytesIn(file) == bytes && HiveRig::BytesIn(file.native() + "-wal") == logged;
            }));
            EXPECT_EQ(Kept(*rig.Open()), "(6)");
            EXPECT_EQ(rig.trouble, "");
        }
    }
}

TEST_F(HiveFile, OfProcessesThatStartOnRubbishOneMovesIt)
{
    for (std::size_t round = 1; round <= 3; ++round) {
        rig.Put(rig.User(), "rubbish");
        std::vector<pid_t> children;
        for (int i = 0; i < 8; ++i)
            children.push_back(StartChild([&] {
                const auto store = rig.Open();
                EXPECT_EQ(SetText(*store, kCurrentUser, std::to_string(i), "x"), 0U) << rig.trouble;
                EXPECT_EQ(TextAt(*store, kCurrentUser, std::to_string(i)), "x");
            }));
        for (const pid_t child : children) EXPECT_TRUE(EndsWell(child));
        EXPECT_EQ(rig.Open()->EnumValue(kCurrentUser, 7, 260, {}).code, Code::MoreData);
        EXPECT_EQ(rig.Named("settings.hive.not-a-database-2").size(), round);
    }
}

TEST_F(HiveFile, DamageThatComesLaterGivesCodes)
{
    MakeHive(200);
    const auto store = rig.Open();
    const auto key = store->OpenKey(kCurrentUser, "k", kKeyAllAccess).key;
    Overwrite(8 * 4096, fs::file_size(rig.User()) - 8 * 4096);
    RunSql("PRAGMA user_version = 1");  // another's change makes the store read the file again
    int corrupt = 0;
    for (int i = 0; i < 200; ++i) {
        const auto name = std::to_string(i);
        corrupt += TextAt(*store, key, name) == "(1015)" ? 1 : 0;
        corrupt += SetText(*store, key, name, "x") == Code::RegistryCorrupt ? 1 : 0;
        std::array<std::uint8_t, 600> buffer{};
        corrupt +=
            store->EnumValue(key, static_cast<std::uint32_t>(i), 260, buffer).code == Code::RegistryCorrupt;
    }
    EXPECT_GT(corrupt, 100);
}

TEST_F(HiveFile, WhatIsNoHiveAtAllIsLeftAlone)
{
    const auto companion = rig.User().native() + "-journal";
    const std::function<void()> things[] = {
        [&] { fs::create_directory(rig.User()); },
        [&] { EXPECT_EQ(mkfifo(rig.User().c_str(), 0600), 0); },
        [&] { fs::create_symlink(rig.Folder() / "nowhere", rig.User()); },
        [&] { fs::create_symlink("/dev/zero", rig.User()); },
        [&] { RunSql("CREATE TABLE theirs(x)"); },
        [&] { RunSql("PRAGMA application_id = 7"); },
    };
    for (const auto& make : things) {
        make();
        const auto before = fs::symlink_status(rig.User()).type();
        ExpectUsable(*rig.Open());
        ExpectTrouble("changes last until the program ends");
        EXPECT_EQ(fs::symlink_status(rig.User()).type(), before);
        EXPECT_FALSE(fs::exists(rig.Folder() / "nowhere"));
        EXPECT_EQ(rig.Named("settings.hive.").size(), 0U);
        fs::remove(rig.User());
    }
    MakeHive();
    EXPECT_EQ(mkfifo(companion.c_str(), 0600), 0);
    ExpectUsable(*rig.Open());
    ExpectTrouble("is not an ordinary file");

    rig.Put(rig.Folder() / "file", "x");
    std::string trouble;
    for (const auto& path : {rig.Folder() / "file" / "x" / "hive", fs::path("/proc/none/hive"), fs::path()}) {
        ExpectUsable(*RegistryStore::Open(path, rig.Machine(), trouble));
        EXPECT_NE(trouble.find("cannot be made"), std::string::npos) << trouble;
    }
}

TEST_F(HiveFile, OneThatCannotBeWrittenIsRead)
{
    const auto open = fs::perms::all, readable = fs::perms(0555);
    const struct {
        fs::perms folder, file;
    } cases[] = {{open, fs::perms(0444)}, {readable, fs::perms(0444)}, {readable, fs::perms(0666)}};
    MakeHive();
    for (const auto& [folder, file] : cases) {
        fs::permissions(rig.Folder(), folder);
        fs::permissions(rig.User(), file);
        EXPECT_TRUE(EndsWell(StartChild([&] {
            BecomeOrdinaryUser();
            ExpectReadOnly(*rig.Open());
            ExpectTrouble("it is only read");
        })));
    }
    fs::permissions(rig.User(), fs::perms::none);
    EXPECT_TRUE(EndsWell(StartChild([&] {
        BecomeOrdinaryUser();
        ExpectUsable(*rig.Open());
        ExpectTrouble("cannot be opened");
    })));
    fs::permissions(rig.Folder(), open);
    fs::permissions(rig.User(), fs::perms(0600));
    EXPECT_EQ(Kept(*rig.Open()), "kept");
    EXPECT_EQ(rig.trouble, "");
}

}  // namespace
