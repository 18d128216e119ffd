#include "zentrel/ServiceRig.h"

#include "zentrel/EntryKeys.h"
#include "zentrel/KeyPath.h"

#include <array>
#include <atomic>
#include <future>
#include <lmdb.h>
#include <random>
#include <set>
#include <thread>

using namespace zentrel;
namespace fs = std::filesystem;

namespace {

using Role = Service::Role;

constexpr std::uint32_t kMany = 25'000;  // entries, for several batches
constexpr std::size_t kFiles = kMany / 100;
const std::string kTop = "LM/W3SVC/1/Root";
const std::string kTree = kTop + "/many";

PropertySet Entry(std::uint32_t id)
{
    PropertySet properties;
    properties.SetNumber(Prop::CacheId, id);
    properties.SetBytes(Prop::GzipRecord, WriteCacheRecord({}));
    return properties;
}

class DeletionTest : public ServiceRig {
protected:
    // Puts keys into the store as they are given, with an empty file for each record, and opens it again.
    void Put(const std::map<std::string, PropertySet>& keys)
    {
        Close();
        {
            auto store = Metabase::Open(Data(), Metabase::Access::Write);
            ASSERT_TRUE(store) << store.error().description;
            auto txn = (*store)->BeginWrite();
            for (const auto& [path, properties] : keys) ASSERT_TRUE(txn->SetProperties(path, properties));
            const std::array nextCacheId{std::byte{0}, std::byte{0}, std::byte{1}, std::byte{0}};
            ASSERT_TRUE(txn->SetMeta("nextCacheId", nextCacheId));
            ASSERT_TRUE(txn->Commit());
        }
        Reopen(Role::Writer);
        const auto txn = service->Store().BeginRead();
        auto walk = KeyWalk::Begin(*txn, {});
        std::vector<CachedFile> files;
        for (auto visit = walk->Next(*txn); visit && *visit; visit = walk->Next(*txn))
            AppendFiles((*visit)->row, (*visit)->parentCacheId, files);
        for (const auto& file : files) {
            fs::create_directories((service->Cache().Root() / file.Path()).parent_path());
            std::ofstream(service->Cache().Root() / file.Path());
        }
    }

    // Entries in folders, one folder of which a virtual directory keeps in its place. Few have a cached file.
    void PutMany()
    {
        std::map<std::string, PropertySet> keys;
        for (std::uint32_t i = 1; i < kMany; ++i) {
            auto& entry = keys[kTree + '/' + std::to_string(i % 50) + "/page" + std::to_string(i)] = Entry(i);
            if (i % 100 != 0) entry.Remove(Prop::GzipRecord);
        }
        auto directory = Entry(kMany);
        directory.SetText(Prop::KeyType, kVirtualDirType);
        keys[kTree + "/7/vdir"] = directory;
        Put(keys);
    }

    std::size_t Visible(const ReadTxn& txn) const
    {
        std::size_t entries = 0;
        auto walk = KeyWalk::Begin(txn, {});
        for (auto visit = walk->Next(txn); visit && *visit; visit = walk->Next(txn))
            entries += IsEntry((*visit)->row) ? 1 : 0;
        return entries;
    }
    std::size_t Visible() const { return Visible(*service->Store().BeginRead()); }

    // Every row is one that a path leads to, and each number of children is right.
    void ExpectNoTrash() const
    {
        const auto txn = service->Store().BeginRead();
        MDB_stat stored{};
        ASSERT_EQ(mdb_stat(txn->Handle(), txn->KeysHandle(), &stored), 0);
        const auto keys = Keys();
        EXPECT_EQ(stored.ms_entries, keys.size());
        std::map<std::string, std::uint32_t> children;
        for (const auto& [path, properties] : keys)
            if (!path.empty()) ++children[std::string(ParentPath(path))];
        for (const auto& [path, properties] : keys)
            EXPECT_EQ((*txn->Find(path))->childCount, children[path]) << path;
    }
};

// What a deletion must leave of a store, told from its keys alone.
std::set<std::string> LeftOf(const std::map<std::string, PropertySet>& keys, const std::string& path)
{
    std::set<std::string> left;
    const auto keep = [&left](std::string_view key) {
        for (; left.insert(std::string(key)).second; key = ParentPath(key)) {
        }
    };
    for (const auto& [key, properties] : keys) {
        const bool isInTree = (key + '/').starts_with(path + '/');
        const bool isAbove = (path + '/').starts_with(key + '/') && !isInTree;
        if (PathDepth(key) <= 4 || properties.Has(Prop::KeyType) || properties.Has(Prop::ServerComment))
            keep(key);
        if (!isInTree && (!isAbove || properties.Has(Prop::GzipRecord))) keep(key);
    }
    return left;
}

}  // namespace

TEST_F(DeletionTest, ReadersSeeTheWholeTreeOrNoneOfIt)
{
    Start();
    PutMany();
    const auto before = service->Store().BeginRead();
    std::atomic<bool> isOver = false;
    std::set<std::size_t> seen;
    std::thread reader([&] {
        while (!isOver) seen.insert(Visible());
    });
    std::vector<std::size_t> between;
    const auto count = service->DeleteTree(kTree, [&](std::uint64_t) {
        between.push_back(Visible());
        return true;
    });
    isOver = true;
    reader.join();
    EXPECT_EQ(count.value(), kMany);
    EXPECT_EQ(between, std::vector<std::size_t>(3));
    for (const auto entries : seen) EXPECT_TRUE(entries == 0 || entries == kMany) << entries;
    EXPECT_EQ(Visible(*before), kMany) << "what was begun before";
    EXPECT_EQ(CheckConsistency(), 0U);
    ExpectNoTrash();
}

TEST_F(DeletionTest, WhatIsCachedMeanwhileStays)
{
    Start();
    PutMany();
    WriteFile("many/7/page7.html", Page(5000));
    std::future<Response> answer;
    const auto ask = [&](std::uint64_t) {
        if (!answer.valid()) answer = std::async([&] { return Get("/many/7/page7.html"); });
        return true;
    };
    EXPECT_EQ(service->DeleteTree(kTree, ask).value(), kMany);
    EXPECT_EQ(answer.get().status, 200);
    EXPECT_TRUE(service->AddVirtualDir(1, "many/8", Root()));
    EXPECT_EQ(CheckConsistency(), 1U);
    EXPECT_TRUE(Keys().contains(kTree + "/7/page7.html"));
    EXPECT_TRUE(Get("/many/7/page7.html").fromCache);
    ExpectNoTrash();
}

TEST_F(DeletionTest, WhateverCutsItShortIsMadeGoodLater)
{
    Start();
    enum class By { Kill, Order, FullDisk };
    const struct {
        const char* what;
        By by;
        int batches;  // after which the deletion is cut short
        bool next;    // another deletion comes before the next writer
    } cases[] = {
        {"killed before the files", By::Kill, 1, false},
        {"killed at the end", By::Kill, 3, false},
        {"told to end, then a writer", By::Order, 1, false},
        {"told to end, then a deletion", By::Order, 2, true},
        {"full disk, then a writer", By::FullDisk, 1, false},
        {"full disk, then a deletion", By::FullDisk, 1, true},
    };
    for (const auto& [what, by, batches, next] : cases) {
        SCOPED_TRACE(what);
        PutMany();
        WriteFile("other.html", Page(5000));
        Get("/other.html");
        ASSERT_EQ(CheckConsistency(), kFiles + 1);
        std::uint64_t told = 0;
        const auto run = [&told, left = batches, end = by](std::uint64_t count) mutable {
            told = count;
            if (--left > 0) return true;
            if (end == By::Kill) _exit(7);
            if (end == By::FullDisk) LimitFileSize(16'384);  // what the next batch writes does not fit
            return end == By::FullDisk;
        };
        if (by == By::Kill) {
            Close();
            const auto work = [&] {
                Reopen(Role::Writer);
                return service->DeleteTree(kTree, run) ? 1 : 2;
            };
            EXPECT_EQ(InChild(work), 7);
            Reopen(Role::Viewer);
        } else {
            if (by == By::Order && next) Reopen(Role::Viewer);
            const auto deleted = service->DeleteTree(kTree, run);
            LimitFileSize(RLIM_INFINITY);
            EXPECT_EQ(deleted ? 0 : deleted.error().code, by == By::Order ? 0 : Code::DiskFull);
            EXPECT_EQ(deleted.value_or(told), told);
            EXPECT_LT(told, kMany);
            EXPECT_GT(CountFiles(), 1U);
        }
        EXPECT_EQ(Visible(), 1U);
        if (next)
            EXPECT_EQ(service->DeleteTree(kTop + "/other.html").value(), 1U);
        else
            Reopen(Role::Writer);
        EXPECT_EQ(CheckConsistency(), next ? 0U : 1U);
        ExpectNoTrash();
    }
}

TEST_F(DeletionTest, WhatCannotBeRemovedKeepsNothingElse)
{
    Start();
    PutMany();
    const auto obstacle = service->Cache().Root() / CachedFile{500, Encoding::Gzip, 0}.Path();
    fs::remove(obstacle);
    fs::create_directory(obstacle);
    EXPECT_FALSE(service->DeleteTree(kTree));
    EXPECT_EQ(Visible(), 0U);
    EXPECT_EQ(CountFiles(), 0U);
    ExpectNoTrash();
    Reopen(Role::Writer);  // it is looked for again, and still there
    fs::remove(obstacle);
    std::ofstream(obstacle) << "no longer in the way";
    Reopen(Role::Writer);
    EXPECT_EQ(CountFiles(), 0U);
    Reopen(Role::Viewer);
    EXPECT_FALSE(fs::exists(Data() / "unclean"));
}

TEST_F(DeletionTest, LeavesOfAnyTreeWhatItIsSetUpWith)
{
    Start();
    std::mt19937 random(7);
    for (int round = 0; round < 12; ++round) {
        std::map<std::string, PropertySet> keys;
        std::vector<std::string> paths{kTop};
        for (std::uint32_t i = 1; i <= 120; ++i) {
            const auto path = paths[random() % paths.size()] + '/' + std::to_string(i);
            auto properties = random() % 3 == 0 ? PropertySet() : Entry(i);
            if (random() % 12 == 0) properties.SetText(Prop::KeyType, kVirtualDirType);
            if (random() % 20 == 0) properties.SetText(Prop::ServerComment, "somebody's own");
            if (properties.Has(Prop::CacheId) && random() % 4 == 0) {
                PropertySet version;
                version.SetBytes(Prop::DeflateRecord, WriteCacheRecord({}));
                keys[path + '/' + QueryHashText(i)] = version;
            }
            keys[path] = properties;
            paths.push_back(path);
        }
        Put(keys);
        for (int deletion = 0; deletion < 4; ++deletion) {
            const auto& path = paths[deletion == 3 ? 0 : random() % paths.size()];
            const auto before = Keys();
            auto deleted = service->DeleteTree(path);
            EXPECT_EQ(deleted.has_value(), before.contains(path));
            std::set<std::string> left;
            for (const auto& [key, properties] : Keys()) {
                left.insert(key);
                const bool isInTree = (key + '/').starts_with(path + '/');
                EXPECT_FALSE(deleted && isInTree && properties.Has(Prop::CacheId)) << key;
            }
            const auto expected = deleted ? LeftOf(before, path) : left;
            ASSERT_EQ(left, expected) << "round " << round << ' ' << path;
            CheckConsistency();
            ExpectNoTrash();
        }
    }
}

TEST_F(DeletionTest, ADeepBranchGoesWithAllThatLeadsToIt)
{
    Start();
    std::map<std::string, PropertySet> keys;
    std::string deep = kTop;
    for (std::uint32_t i = 1; i <= 1'500; ++i) keys[deep += "/d"] = i == 1'500 ? Entry(i) : PropertySet();
    for (const bool isWhole : {true, false}) {
        Put(keys);
        EXPECT_EQ(service->DeleteTree(isWhole ? kTop + "/d" : deep).value(), 1U);
        EXPECT_EQ(Keys().rbegin()->first, kTop);
        EXPECT_EQ(CheckConsistency(), 0U);
        ExpectNoTrash();
    }
}
