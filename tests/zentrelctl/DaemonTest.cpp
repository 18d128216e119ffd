#include "zentrelctl/Server.h"

#include "zentrel/Expiry.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/TopDownWalk.h"

#include <algorithm>
#include <csignal>

namespace fs = std::filesystem;

class DaemonTest : public Server {
protected:
    Outcome Daemon(Args arguments) const { return RunProgram(ZENTRELD, OnData(std::move(arguments))); }

    std::ptrdiff_t CountCachedFiles() const
    {
        const fs::recursive_directory_iterator all(Data() / "cache");
        return std::count_if(begin(all), end(all), [](const auto& file) { return file.is_regular_file(); });
    }
};

TEST_F(DaemonTest, ItIsTheOneWriterUntilItIsToldToEnd)
{
    MakeWarmSite();
    Program first(ZENTRELD, OnData({"--interval", "1"}));
    ASSERT_TRUE(first.WaitForError("info: opened"));
    const auto second = Daemon({});
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_TRUE(second.err.starts_with("zentreld: error: ") && second.err.ends_with("(error 32)\n"))
        << second.err;
    const auto refused = Ctl({"warm", "1"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(Contains(refused.err, "(error 32)")) << refused.err;
    EXPECT_TRUE(Contains(Do({"ls", "LM/W3SVC/1/Root"}), "index.html")) << "readers are not kept out";

    fs::remove(Root() / "dir/a.css");
    ASSERT_TRUE(first.WaitForError("1 without their file and removed"));
    first.Signal(SIGHUP);
    first.Signal(SIGTERM);
    const auto ended = first.Wait();
    EXPECT_EQ(ended.exitCode, 0) << ended.err;
    EXPECT_TRUE(ended.err.ends_with("zentreld: info: ended\n")) << ended.err;
    EXPECT_EQ(Do({"warm", "1"}), "site 1: 2 files in the cache, 0 skipped\n");
}

TEST_F(DaemonTest, ARoundKeepsTheEntriesOfAFolderThatIsAway)
{
    MakeWarmSite();
    fs::rename(Root(), Root().string() + ".away");
    const auto away = Daemon({"--once"});
    EXPECT_EQ(away.exitCode, 0) << away.err;
    EXPECT_TRUE(
        Contains(away.err, "warning: the folder is missing, its entries stay: " + Root().string() + '\n'));
    EXPECT_TRUE(Contains(away.err, "3 entries looked at, 0 expired and removed, 0 without")) << away.err;
    fs::rename(Root().string() + ".away", Root());
    fs::remove_all(Root() / "dir");
    EXPECT_TRUE(Contains(Daemon({"--once"}).err, "0 expired and removed, 2 without their file"));
    EXPECT_FALSE(Contains(Do({"ls", "-r"}), "/dir"));
    EXPECT_EQ(CountCachedFiles(), 1) << "cached files go with their entries";
}

TEST_F(DaemonTest, WrongUsageAndMissingDataEndAtOnce)
{
    EXPECT_EQ(Daemon({"--interval", "0"}).exitCode, 2);
    EXPECT_EQ(Daemon({"extra"}).exitCode, 2);
    EXPECT_EQ(Daemon({"--version"}).exitCode, 0);
    EXPECT_EQ(Daemon({}).exitCode, 1);
    EXPECT_FALSE(fs::exists(Data()));
}

TEST_F(DaemonTest, EntriesExpireWithTheirLastVersionAndGoWithTheirFile)
{
    constexpr std::size_t kMany = 1050;  // more than one batch
    for (std::size_t i = 0; i < kMany; ++i) Write("many/f" + std::to_string(i) + ".txt", 60);
    MakeWarmSite(kMany + 3);
    const std::string line = "h - - [10/Oct/2000:13:55:36 -0700] \"GET /dir/a.css?q=1 HTTP/1.1\" 200 1\n";
    Do({"replay", "1", "-"}, line);
    const auto service = zentrel::Service::Open(Data(), zentrel::Service::Role::Writer).value();
    const auto run = [&](std::uint64_t days, bool stop = false) {
        const auto now = zentrel::TicksNow() + days * 864'000'000'000;
        return zentrel::RemoveStaleEntries(*service, now, [stop] { return stop; }).value();
    };
    fs::remove(Root() / "dir/b.svg");
    fs::remove(Root() / "many/f7.txt");
    const auto first = run(29);
    EXPECT_EQ(first.entries, kMany + 3);
    EXPECT_EQ(first.vanished, 2U);
    EXPECT_EQ(first.expired, 0U);
    EXPECT_EQ(service->DeleteTree("LM/W3SVC/1/Root/many").value(), kMany - 1);
    EXPECT_EQ(run(31, true).expired, 0U) << "told to stop";
    EXPECT_EQ(run(31).expired, 2U) << "with a variant of its own or without";
    EXPECT_EQ(run(31).entries, 0U);
    EXPECT_EQ(CountCachedFiles(), 0) << "cached files go with their entries";
}

TEST(TopDownWalk, GoesOnWhileKeysComeAndGo)
{
    const auto folder = TempFolder::Make("walk-").value();
    ASSERT_TRUE(zentrel::Metabase::Create(folder.Path()));
    const auto store = zentrel::Metabase::Open(folder.Path(), zentrel::Metabase::Access::Write).value();
    const auto change = [&](const std::vector<const char*>& made, const std::vector<const char*>& removed) {
        auto txn = store->BeginWrite().value();
        for (const char* const path : made) ASSERT_TRUE(txn.MakeKey(path));
        for (const char* const path : removed) ASSERT_TRUE(txn.RemoveKey(path));
        ASSERT_TRUE(txn.Commit());
    };
    change({"a/b/c", "a/b/d/e", "a/b/f", "a/g", "h"}, {});
    std::string seen;
    std::optional<zentrel::TopDownWalk> walk;
    for (bool more = true; more;) {
        const auto txn = store->BeginRead().value();
        if (walk)
            ASSERT_TRUE(walk->Resume(txn));
        else
            walk = std::move(zentrel::TopDownWalk::Begin(txn, "").value());
        more = walk->Next().value().has_value();
        seen += walk->Path() + std::to_string(walk->Depth()) + ' ';
        if (walk->Path() == "a/b/d/e") change({"a/b/da", "a/b/a"}, {"a/b/d/e", "a/b/d", "a/b/f"});
        if (walk->Path() == "a/g") change({"a/g/x"}, {});
    }
    EXPECT_EQ(seen, "a1 a/b2 a/b/c3 a/b/d3 a/b/d/e4 a/b/da3 a/g2 h1 0 ");

    const auto txn = store->BeginRead().value();
    auto children = zentrel::TopDownWalk::Begin(txn, "/a/").value();
    for (seen.clear(); children.Next().value(); children.SkipChildren()) seen += children.Path() + ' ';
    EXPECT_EQ(seen, "a/b a/g ");
    EXPECT_EQ(zentrel::TopDownWalk::Begin(txn, "a/none").error().code, Code::FileNotFound);
}
