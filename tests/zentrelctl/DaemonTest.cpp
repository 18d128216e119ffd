#include "zentrelctl/Server.h"

#include "zentrel/Expiry.h"
#include "zentrel/RecordLayout.h"

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
    EXPECT_TRUE(Contains(Daemon({}).err, "(error 32)"));
    EXPECT_TRUE(Contains(Ctl({"warm", "1"}).err, "(error 32)"));

    fs::remove(Root() / "dir/a.css");
    ASSERT_TRUE(first.WaitForError("1 without their file and removed"));
    first.Signal(SIGTERM);
    EXPECT_EQ(first.Wait().exitCode, 0);
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
    EXPECT_EQ(CountCachedFiles(), 0) << "cached files go with their entries";
}
