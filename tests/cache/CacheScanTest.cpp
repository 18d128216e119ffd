#include "cache/CacheScan.h"

#include "support/ScanRig.h"
#include "support/ScriptedTransport.h"
#include "support/TestStore.h"
#include "zentrel/EmbeddedTransport.h"

using zentrel::Prop::DeflateRecord;

namespace {

std::shared_ptr<zentrel::Transport> Embedded(const TestStore& store)
{
    return std::make_shared<zentrel::EmbeddedTransport>(store.Folder(), "testhost");
}

// Hands on one row at a time, as many as it may, then fails.
class BreakingStream : public zentrel::SubtreeStream {
public:
    BreakingStream(std::unique_ptr<zentrel::SubtreeStream> real, int rows)
        : m_real(std::move(real)),
          m_left(rows)
    {
    }
    Done Next(zentrel::RowBatch& batch) override
    {
        batch.Clear();
        if (m_left-- == 0) return Fail(Code::ServerUnavailable, "test");
        auto row = m_batch.Take();
        if (!row) {
            if (auto next = m_real->Next(m_batch); !next) return next;
            row = m_batch.Take();
        }
        if (row) batch.Add(*row);
        return {};
    }

private:
    std::unique_ptr<zentrel::SubtreeStream> m_real;
    zentrel::RowBatch m_batch;
    int m_left;
};

// A transport whose sessions send a few rows ahead, or none, and then fail to: from there on every read is a
// call of its own.
class BreakingReadAhead : public ScriptedTransport {
public:
    BreakingReadAhead(std::shared_ptr<zentrel::Transport> real, int most)
        : m_real(std::move(real)),
          m_most(most)
    {
    }
    Result<std::shared_ptr<zentrel::Session>> Connect(std::string_view name) override
    {
        auto real = m_real->Connect(name);
        if (!real) return real;
        return std::shared_ptr<zentrel::Session>(std::make_shared<Plain>(*real, m_most));
    }

private:
    struct Plain : ScriptedSession {
        Plain(std::shared_ptr<zentrel::Session> session, int mostRows)
            : ScriptedSession(nullptr),
              real(std::move(session)),
              most(mostRows)
        {
        }
        Done OpenKey(std::string_view path) override { return real->OpenKey(path); }
        Result<std::uint32_t> CountKeys(std::string_view path, zentrel::View view) override
        {
            return real->CountKeys(path, view);
        }
        Result<zentrel::KeyPage> ListKeys(std::string_view path, zentrel::View view, std::string_view after,
                                          std::uint32_t) override
        {
            return real->ListKeys(path, view, after, 2);  // many small pages
        }
        Result<std::optional<zentrel::Record>> GetData(std::string_view path, zentrel::PropertyId id) override
        {
            return real->GetData(path, id);
        }
        Result<std::unique_ptr<zentrel::SubtreeStream>> OpenSubtree(std::string_view path) override
        {
            if (most < 0) return Fail(Code::NotSupported, "test");
            auto stream = real->OpenSubtree(path);
            if (!stream) return stream;
            return std::unique_ptr<zentrel::SubtreeStream>(
                std::make_unique<BreakingStream>(std::move(*stream), most));
        }

        const std::shared_ptr<zentrel::Session> real;
        const int most;
    };

    const std::shared_ptr<zentrel::Transport> m_real;
    const int m_most;
};

// One server with a case of everything that a cache can hold.
void FillEverything(TestStore& store)
{
    const std::string root = "LM/W3SVC/1/Root/";
    store.PutSite(1, "First <b>site</b>");
    store.Put(root + "index.htm", TestStore::Entry(1, 1000, 250));
    store.Put(root + "B.css", TestStore::Entry(2, 1000, 125));
    store.Put(root + "a.css", TestStore::Entry(3, 1000, 450, DeflateRecord));
    store.Put(root + "img/deep/logo.svg", TestStore::Entry(4, 400, 100));
    auto both = TestStore::Entry(5, 800, 400);
    both.Set(*TestStore::Variant(800, 1, DeflateRecord).Find(DeflateRecord));
    store.Put(root + "img/both.js", both);
    auto bare = TestStore::Entry(6, 1, 1);
    bare.Remove(zentrel::Prop::GzipRecord);
    store.Put(root + "img/norecord.js", bare);
    store.PutVirtualDir(root + "app", "/srv/app/");
    store.Put(root + "app/page.aspx", TestStore::Entry(7, 100, 100));
    store.Put(root + "search", TestStore::Entry(8, 9, 9));
    store.Put(root + "search/00000000000A", TestStore::Variant(2000, 500));
    store.Put(root + "search/00000000000B", TestStore::Variant(9999, 1));
    store.Put(root + "search/00000000000C", TestStore::Variant(9999, 1));
    store.PutSite(2, "Empty");
    store.PutVirtualDir("LM/W3SVC/2/Root/unused", "/srv/unused");
    store.PutSite(3, "Root is a page");
    auto page = TestStore::Entry(9, 300, 100);
    page.SetText(zentrel::Prop::KeyType, zentrel::kVirtualDirType);
    store.Put("LM/W3SVC/3/Root", page);
    store.Put("LM/W3SVC/3/Root/x.htm", TestStore::Entry(10, 300, 100));
    store.PutSite(4, "Folders only");
    store.Put("LM/W3SVC/4/Root/folder/leaf", zentrel::PropertySet());
}

constexpr const char* kEverything = "IIS Internet Information Services\n"
                                    "  WebSite First <b>site</b>\n"
                                    "    File a.css (45%) Remains\n"
                                    "    VDir app\n"
                                    "      File page.aspx (100%) Remains\n"
                                    "    File B.css (12.5%) Remains\n"
                                    "    Folder img\n"
                                    "      File both.js (50%) Remains\n"
                                    "      Folder deep\n"
                                    "        File logo.svg (25%) Remains\n"
                                    "    File index.htm (25%) Remains\n"
                                    "    MultiFile search (3 entries)\n"
                                    "  WebSite Empty (nothing cached)\n"
                                    "  WebSite Root is a page\n"
                                    "    File x.htm (33.33%) Remains\n";

zentrel::PropertySet Ratio(std::uint64_t percent)
{
    return TestStore::Entry(1, 100, percent);
}

}  // namespace

// A stream that breaks, at whatever row, is made up for by asking the server.
TEST(CacheScan, BuildsTheSameTreeWithAndWithoutReadAhead)
{
    TestStore store;
    FillEverything(store);
    for (int rows = -1; rows < 30; ++rows) {
        SCOPED_TRACE(rows);
        ScanRig rig(std::make_shared<BreakingReadAhead>(Embedded(store), rows));
        rig.Rescan({1, 0, -7, 2, 99, 3, 4});
        EXPECT_EQ(rig.Print(), kEverything);
        EXPECT_EQ(rig.status, "Found: 9 Files");
        EXPECT_TRUE(rig.isShown && !rig.isHidden);
        EXPECT_EQ(rig.pointer, ScreenPointer::Default);

        // "search" counts once, with its first variant's size; 10 hits each.
        const auto& totals = rig.contents.totals;
        EXPECT_EQ(totals.Count, 9);
        EXPECT_EQ(totals.UncompressedSize, 1000 * 3 + 400 + 800 + 100 + 2000 + 300 * 2);
        EXPECT_EQ(totals.ServedCompressed, 10 * totals.CompressedSize);
        std::string types;
        for (const auto& type : rig.contents.types)
            types += type.Extension + "=" + std::to_string(type.Count) + " ";
        EXPECT_EQ(types, "css=2 aspx=1 js=1 svg=1 htm=2 =2 ");
    }
}

TEST(CacheScan, KeepsTheWholeRecordOfEachUrl)
{
    TestStore store;
    FillEverything(store);
    ScanRig rig(Embedded(store));
    rig.Rescan({1});
    const auto& tree = rig.contents.tree;

    const auto page = tree.Info(tree.Find("1/Root/app/page.aspx"));
    EXPECT_EQ(page.MetaPath(), "/LM/W3SVC/1/Root/app/page.aspx");
    EXPECT_EQ(page.PhysycalPath(), "\\srv\\app\\page.aspx");
    EXPECT_EQ(page.CacheFilePath(), "0\\7.gzip");
    const auto css = tree.Info(tree.Find("1/Root/a.css"));
    EXPECT_EQ(css.CacheExt, ".deflate");
    EXPECT_EQ(css.PhysycalPath(), "\\srv\\site1\\a.css");
    EXPECT_EQ(css.TotalHits, 10);
    EXPECT_EQ(tree.Info(tree.Find("1/Root/search")).SubQueryCount, 3);
    EXPECT_EQ(tree.Find("1/Root/img/norecord.js"), kNoNode);
    EXPECT_EQ(tree.Key(tree.Find("1/Root/img/deep")), "1/Root/img/deep");
}

TEST(CacheScan, StopEndsItAfterTheEntryInProgressOnEveryLevel)
{
    TestStore store;
    FillEverything(store);
    ScanRig rig(Embedded(store));
    rig.onRun = [&rig] {
        EXPECT_TRUE(rig.scan.IsBusy());
        rig.Rescan({1});  // refused while one runs
        if (rig.status.ends_with("both.js")) rig.stop.isSet = true;
    };
    rig.Rescan({1, 2, 3});
    EXPECT_EQ(rig.status, "Found: 4 Files");
    EXPECT_EQ(rig.contents.tree.Find("1/Root/index.htm"), kNoNode);
    EXPECT_NE(rig.Print().find("both.js"), std::string::npos);
    EXPECT_FALSE(rig.stop.isSet || rig.scan.IsBusy());
}

TEST(CacheScan, RefusesWithoutConnectionAndTellsOfAMissingService)
{
    auto script = std::make_shared<ScriptedTransport>();
    ScanRig rig(script);
    rig.isConnected = false;
    rig.Rescan({1});
    EXPECT_EQ(rig.contents.tree.Size(), 0U);

    rig.isConnected = true;
    rig.status = "before";
    for (const auto code : {Code::UnknownInterface, Code::ServerUnavailable, 1759U}) {
        script->openError = code;
        rig.Rescan({1});
    }
    EXPECT_EQ(rig.boxes,
              std::vector<std::string>(
                  3, "caption: Zentrel is not started on this server or it is an older version (!)"));
    EXPECT_EQ(rig.contents.tree.Size(), 1U);
    EXPECT_EQ(rig.status, "before");
    script->openError = Code::AccessDenied;
    rig.Rescan({1});
    EXPECT_EQ(rig.boxes.size(), 3U);
    EXPECT_EQ(rig.status, "Found: 0 Files");
}

TEST(CacheScan, RefreshingANodeUpdatesSizesAndTotalsButNotTheText)
{
    TestStore store;
    FillEverything(store);
    ScanRig rig(Embedded(store));
    rig.Rescan({1});
    const auto text = rig.Print();
    const auto before = rig.contents.totals.CompressedSize;
    const auto sizeBefore = rig.contents.totals.UncompressedSize;
    const auto transport = Embedded(store);
    rig.server = zentrel::ServerAdmin(transport);  // lets go of the store, for the test to write
    rig.cache = zentrel::CacheAdmin(transport);
    store.Put("LM/W3SVC/1/Root/index.htm", TestStore::Entry(1, 1000, 350));
    store.Put("LM/W3SVC/1/Root/search/00000000000A", TestStore::Variant(3000, 500));
    ASSERT_TRUE(rig.server.Connect("") && rig.cache.Connect(""));
    rig.scan.RefreshFileNode(rig.contents.tree.Find("1/Root/search"));
    EXPECT_EQ(rig.contents.totals.UncompressedSize, sizeBefore + 1000);
    const auto node = rig.contents.tree.Find("1/Root/index.htm");
    rig.scan.RefreshFileNode(node);
    rig.scan.RefreshFileNode(kNoNode);
    EXPECT_EQ(rig.Print(), text);
    EXPECT_EQ(rig.contents.totals.CompressedSize, before + 100);
    EXPECT_EQ(rig.contents.totals.Count, 7);
    EXPECT_EQ(rig.contents.tree.Info(node).CompressedSize, 350);
}

TEST(CacheScan, KeysAsDeepAsAServerLikesAndNothingRecurses)
{
    auto script = std::make_shared<ScriptedTransport>();
    constexpr std::uint32_t kDepth = 7'000;
    for (std::uint32_t depth = 0; depth < kDepth; ++depth) script->rows.push_back({depth, 1, "d", {}});
    script->rows.push_back({kDepth, 0, "leaf.htm", Ratio(50)});
    script->rowsInBatch = 1000;
    ScanRig rig(script);
    rig.Rescan({1});
    EXPECT_EQ(rig.status, "Found: 1 Files");
    EXPECT_EQ(rig.contents.tree.Size(), kDepth + 1);  // root, then "1/d" for the first two

    // Deeper than any URL: what lies there is left alone, however much it is.
    for (std::uint32_t depth = kDepth; depth < 3 * kDepth; ++depth)
        script->rows.push_back({depth, 1, "d", {}});
    for (int i = 0; i < 20'000; ++i) script->rows.push_back({3 * kDepth, 0, "x", Ratio(50)});
    rig.Rescan({1});
    EXPECT_EQ(rig.status, "Found: 1 Files");
}

TEST(CacheScan, LyingServersGiveATreeThatHoldsTogether)
{
    using Rows = std::vector<ScriptedTransport::Row>;
    const ScriptedTransport::Row site{0, 9, "1", {}};
    const ScriptedTransport::Row root{1, 9, "Root", {}};
    zentrel::PropertySet wrongTypes = Ratio(50);
    wrongTypes.SetText(zentrel::Prop::CacheId, "not a number");
    wrongTypes.SetNumber(zentrel::Prop::VirtualRoot, 7);
    const std::string top = "IIS Internet Information Services\n";
    const std::string under = top + "  WebSite Root\n";
    const struct {
        Rows rows;
        std::string tree;
    } lies[] = {
        {{site, root, {2, 0, "b", Ratio(1)}, {2, 0, "a", Ratio(2)}, {2, 0, "b", Ratio(3)}},
         under + "    File a (2%) Remains\n    File b (1%) Remains\n"},  // unsorted, twice
        {{site, root, {2, 0, "x", Ratio(1)}, {2, 0, "x/y", Ratio(2)}, {2, 0, "z", Ratio(2)}},
         under + "    File x (1%) Remains\n"},  // a name that is no name
        {{site, root, {2, 0, "x", Ratio(1)}, {3, 0, "y", Ratio(2)}, {3, 0, "z", Ratio(2)}},
         under + "    File x (1%) Remains\n"},                     // children where there are none
        {{site, {5, 9, "Root", {}}, {2, 0, "a", Ratio(1)}}, top},  // nothing above it
        {{site, root, {2, 0, "a", wrongTypes}}, under + "    File a (50%) Remains\n"},
        {{}, top},
    };
    for (const auto& lie : lies) {
        auto script = std::make_shared<ScriptedTransport>();
        script->rows = lie.rows;
        script->rowsInBatch = 2;
        ScanRig rig(script);
        rig.Rescan({1});
        EXPECT_EQ(rig.Print(), lie.tree);
        rig.Rescan({1, 1});  // the same site twice adds no node
        EXPECT_EQ(rig.Print(), lie.tree);
    }
}

TEST(CacheScan, AReconnectInTheMiddleTakesNothingFromUnderTheScan)
{
    TestStore store;
    FillEverything(store);
    ScanRig rig(Embedded(store));
    rig.onRun = [&rig] {
        EXPECT_TRUE(rig.runs != 5 || (rig.cache.Connect("") && rig.server.Connect("")));
        rig.scan.ClearAll();  // refused
    };
    rig.Rescan({1, 2, 3});
    EXPECT_EQ(rig.Print(), kEverything);
}
