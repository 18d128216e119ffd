#include "zentrelctl/Server.h"

#include <csignal>

using CtlTest = Server;

TEST_F(CtlTest, AServerIsMadeFilledAndLookedInto)
{
    MakeWarmSite();
    Write("../other/c.txt");
    Do({"vdir", "add", "1", "/extra/more", (Root() / "../other").string()});
    EXPECT_EQ(Do({"warm", "1", "--below", "/extra/more"}), "site 1: 1 file in the cache, 0 skipped\n");
    EXPECT_EQ(Do({"site", "add", "7", "--comment", "Second \"site\"", "--root", Root().string(), "--binding",
                  "*:80:", "--binding", "[::1]:8080:host", "--encoding", "deflate", "--level", "9"}),
              "");
    EXPECT_TRUE(
        Contains(Do({"site", "list"}), "\n7     deflate   9      *:80: [::1]:8080:host  Second \"site\""));

    const auto all = Do({"ls", "-r", "LM/W3SVC/1/"});
    std::vector<std::string> keys;
    for (std::istringstream lines(all); std::getline(lines, keys.emplace_back());)
        keys.back() =
            keys.back().substr(0, keys.back().find(' ')) + keys.back().substr(keys.back().rfind(' '));
    EXPECT_EQ(keys, (Args{"KIND NAME", "vdir LM/W3SVC/1/Root", "key LM/W3SVC/1/Root/dir",
                          "entry LM/W3SVC/1/Root/dir/a.css", "entry LM/W3SVC/1/Root/dir/b.svg",
                          "key LM/W3SVC/1/Root/extra", "vdir LM/W3SVC/1/Root/extra/more",
                          "entry LM/W3SVC/1/Root/extra/more/c.txt", "entry LM/W3SVC/1/Root/index.html", ""}));
}

TEST_F(CtlTest, RemovingTakesOneEntryOrATree)
{
    MakeWarmSite();
    Do({"rm", "LM/W3SVC/1/Root/index.html"});
    EXPECT_EQ(Ctl({"rm", "LM/W3SVC/1/Root/index.html"}).exitCode, 1);
    EXPECT_EQ(Ctl({"rm", "LM/W3SVC/1/Root/dir"}).exitCode, 1) << "no entry";
    EXPECT_EQ(Ctl({"rm", "--tree", "LM/W3SVC"}).exitCode, 2) << "nobody to ask";
    const auto refused = Ctl({"rm", "--tree", "LM/W3SVC"}, "n\n", Program::Input::Terminal);
    EXPECT_EQ(refused.exitCode, 1) << refused.out;
    EXPECT_TRUE(Contains(refused.out, "[y/N]") && Contains(refused.out, "(error 1223)")) << refused.out;
    const auto agreed = Ctl({"rm", "--tree", "LM/W3SVC"}, "y\n", Program::Input::Terminal);
    EXPECT_EQ(agreed.exitCode, 0) << agreed.out;
    EXPECT_TRUE(Contains(agreed.out, "2 entries deleted")) << agreed.out;
    EXPECT_EQ(Do({"rm", "--tree", "--yes", "LM/W3SVC"}), "0 entries deleted\n");
    EXPECT_TRUE(Contains(Do({"site", "list"}), "Main"));
}

TEST_F(CtlTest, ReplayCountsWhatTheLogHolds)
{
    MakeWarmSite();
    const auto line = [](const std::string& request) {
        return "h - - [10/Oct/2000:13:55:36 -0700] \"" + request + "\" 200 1\r\n";
    };
    const auto longLine = line("GET /" + std::string(300'000, 'x') + " HTTP/1.1");
    const auto longAgent = "h - - [10/Oct/2000:13:55:36 -0700] \"GET /dir/b.svg HTTP/1.1\" 200 1 \"" +
                           std::string(65'536, 'y') + "\"\n";
    const auto log = line("GET /index.html HTTP/1.1") + line("HEAD /index.html?q=1 HTTP/1.1") + "\n" +
                     longLine + longAgent + line("POST / HTTP/1.1") + "junk\n" +
                     line("GET /none.html HTTP/1.1") + line("GET /%2e%2e/x HTTP/1.1") +
                     "h - - [10/Oct/2000:13:55:36 -0700] \"GET /dir/a.css\" 200 1";
    const auto file = Data() / "access.log";
    std::ofstream(file, std::ios::binary) << log;
    const auto replayed = Ctl({"replay", "1", file.string()});
    EXPECT_EQ(replayed.exitCode, 0) << replayed.err;
    EXPECT_EQ(replayed.out,
              "6 requests: 4 answered (4 compressed, 3 from the cache), 1 not found, 1 refused\n"
              "1 line without GET or HEAD passed over\n2 bad lines\n");
    EXPECT_EQ(replayed.err, "zentrelctl: line 4 is no request of the common or combined format\n"
                            "zentrelctl: line 7 is no request of the common or combined format\n");
    EXPECT_TRUE(Contains(Do({"counters", "--reset"}), "Responses Sent Total                    6\n"));
    EXPECT_TRUE(Contains(Do({"counters"}), "Responses Sent Total                    0\n"));
    EXPECT_EQ(Ctl({"replay", "1", "-"}, "junk\n\xFF\n").exitCode, 1);
    EXPECT_EQ(Ctl({"replay", "1", Root().string()}).exitCode, 1) << "a folder";
}

TEST_F(CtlTest, WrongUsageIsToldInOneLineWithExitCode2)
{
    const auto root = Root().string();
    std::vector<Args> cases{{},
                            {"bogus"},
                            {"ls", "--bogus"},
                            {"get"},
                            {"site", "add", "1", "--comment", "\xFF", "--root", root},
                            {"site", "add", "1", "--comment", "x", "--root", root, "--binding", "*:0:h"},
                            {"warm", "1", "--most", "-1"},
                            {"warm", "one"}};
    for (const auto& path : {"LM//x", "LM/../x", "LM/\x1B\xFF"}) {
        for (const auto& command : {"get", "ls", "rm"}) cases.push_back({command, path});
        cases.push_back({"warm", "1", "--below", path});
        cases.push_back({"vdir", "add", "1", path, root});
    }
    for (const auto& arguments : cases) {
        const auto outcome = Ctl(arguments);
        const auto shown = testing::PrintToString(arguments) + outcome.err;
        EXPECT_EQ(outcome.exitCode, 2) << shown;
        EXPECT_TRUE(outcome.err.starts_with("zentrelctl: ") && outcome.err.ends_with("(error 87)\n"))
            << shown;
        EXPECT_EQ(outcome.err.find_first_of("\n\x1B\xFF"), outcome.err.size() - 1) << shown;
        EXPECT_LT(outcome.err.size(), 160U) << shown;
    }
    EXPECT_TRUE(Contains(Ctl({"bogus"}).err, "no command or option \"bogus\""));
    EXPECT_FALSE(std::filesystem::exists(Data()));
    EXPECT_TRUE(Contains(Do({"site", "add", "--help"}), "--binding"));
}

TEST_F(CtlTest, WithoutADataFolderEverythingFailsAndNothingIsMade)
{
    Write("a.html");
    for (const Args& arguments :
         {Args{"site", "list"}, Args{"site", "add", "1", "--comment", "x", "--root", Root().string()},
          Args{"vdir", "add", "1", "/x", Root().string()}, Args{"warm", "1"}, Args{"replay", "1", "-"},
          Args{"ls"}, Args{"get", "LM"}, Args{"rm", "LM/x"}, Args{"rm", "--tree", "--yes", "LM"},
          Args{"counters", "--reset"}}) {
        const auto outcome = Ctl(arguments);
        EXPECT_EQ(outcome.exitCode, 1) << arguments[0];
        EXPECT_TRUE(outcome.err.starts_with("zentrelctl: ") && outcome.err.ends_with("(error 2)\n"))
            << outcome.err;
        EXPECT_FALSE(std::filesystem::exists(Data())) << arguments[0];
    }
}

TEST_F(CtlTest, FailuresSayWhyAndLoseNothing)
{
    MakeWarmSite();
    const auto expect = [&](const Args& arguments, const std::string& error) {
        const auto outcome = Ctl(arguments);
        EXPECT_EQ(outcome.exitCode, 1) << arguments[0];
        EXPECT_TRUE(Contains(outcome.err, "(error " + error + ")\n")) << arguments[0] << ": " << outcome.err;
        EXPECT_EQ(outcome.out, "") << arguments[0];
    };
    expect({"init"}, "183");
    expect({"site", "add", "1", "--comment", "x", "--root", Root().string()}, "183");
    expect({"get", "LM/W3SVC/9"}, "2");
    expect({"ls", "--json", "LM/W3SVC/9"}, "2");
    expect({"replay", "9", "/dev/null"}, "3");
    EXPECT_TRUE(Contains(Ctl({"rm", "--tree", "--yes", "LM/x"}).err, "no such key: LM/x (error 2)"));
    const auto before = Do({"ls", "-r"});
    std::filesystem::rename(Root(), Root().string() + ".away");
    expect({"warm", "1"}, "3");
    EXPECT_EQ(Do({"ls", "-r"}), before);
    EXPECT_EQ(
        RunProgram("/bin/sh", {"-c", "exec " ZENTRELCTL " ls -r --data \"$0\" >/dev/full", Data().string()})
            .exitCode,
        1);

    std::filesystem::resize_file(Data() / "metabase.mdb", 5000);
    expect({"ls"}, "1392");
    std::ofstream(Data() / "metabase.mdb", std::ios::trunc) << std::string(100'000, 'x');
    expect({"warm", "1"}, "1392");
}

TEST_F(CtlTest, NamesFromTheStoreCannotObeyTheTerminal)
{
    Write("\x1B[2J.html");
    Do({"init"});
    Do({"site", "add", "1", "--comment", "a\x1B]0;title\x07", "--root", Root().string()});
    Do({"warm", "1"});
    EXPECT_TRUE(Contains(Do({"ls", "LM/W3SVC/1/Root"}), "\\x1b[2J.html\n"));
    EXPECT_TRUE(Contains(Do({"get", "LM/W3SVC/1"}), "a\\x1b]0;title\\x07\n"));
    EXPECT_TRUE(Contains(Do({"ls", "LM/W3SVC/1/Root", "--json"}), R"("\u001b[2J.html")"));
}

TEST_F(CtlTest, AnInterruptedReplayKeepsWhatIsDone)
{
    MakeWarmSite();
    const std::string log = "h - - [10/Oct/2000:13:55:36 -0700] \"GET /index.html\" 200 1\njunk\n";
    Program replay(ZENTRELCTL, OnData({"replay", "1", "-"}), log, Program::Input::Open);
    ASSERT_TRUE(replay.WaitForError("line 2"));
    replay.Signal(SIGINT);
    const auto outcome = replay.Wait();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(outcome.out.starts_with("1 request: 1 answered")) << outcome.out;
    EXPECT_TRUE(outcome.err.ends_with("what was done stays. (error 1223)\n")) << outcome.err;
    EXPECT_TRUE(Contains(Do({"get", "LM/W3SVC/1/Root/index.html", "--json"}), "\"totalHits\": 1,"));
}
