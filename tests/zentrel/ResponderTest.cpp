#include "zentrel/ServiceRig.h"

#include <sys/stat.h>
#include <thread>
#include <tuple>

using namespace zentrel;
namespace fs = std::filesystem;

namespace {

using ResponderTest = ServiceRig;

}  // namespace

TEST_F(ResponderTest, UrlsFindTheirFilesOrAreRefused)
{
    Start();
    WriteFile("index.htm", "root index");
    WriteFile("dir/index.html", "dir index");
    WriteFile("dir/a b%2F\xC3\xA4.txt", "odd name");
    WriteFile("docs/hidden.txt", "hidden by the virtual directory");
    fs::create_directory(Data() / "other");
    std::ofstream(Data() / "other" / "page.txt") << "other";
    ASSERT_TRUE(service->AddVirtualDir(1, "/docs/api/", Data() / "other"));
    ASSERT_TRUE(service->AddVirtualDir(1, "docs", Root() / "dir"));
    const std::string longName(256, 'x');
    const std::tuple<std::string, int, std::string> cases[] = {
        {"/", 200, "root index"},
        {"/?x=/../", 200, "root index"},
        {"/dir/", 200, "dir index"},
        {"/%64ir/index%2Ehtml", 200, "dir index"},
        {"/dir/a%20b%252F%c3%A4.txt", 200, "odd name"},
        {"/docs/api/page.txt", 200, "other"},
        {"/docs/hidden.txt", 404, ""},
        {"/index.htm/x", 404, ""},
        {"/" + longName.substr(1), 404, ""},
        {"/" + longName, 400, ""},
        {std::string("/\0", 2), 400, ""},
    };
    for (const auto& [url, status, body] : cases) {
        const auto response = Get(url);
        EXPECT_EQ(response.status, status) << url;
        EXPECT_EQ(Text(response.body), body) << url;
    }
    for (const char* url :
         {"", "dir/", "*", "//", "/dir//index.html", "/dir//", "/.", "/..", "/dir/../index.htm",
          "/%2e%2E/index.htm", "/dir%2f..%2findex.htm", "/a%00.txt", "/%FF", "/\xC3", "/%", "/%4", "/%zz"})
        EXPECT_EQ(Get(url).status, 400) << url;
    EXPECT_EQ(responder->Answer({2, "/", true, true})->status, 404);
    EXPECT_EQ(CheckConsistency(), 0U);  // all too small to be cached
}

TEST_F(ResponderTest, NothingOutsideOfTheDocumentRootIsAnswered)
{
    Start();
    WriteFile("real/page.txt", Page(1000));
    std::ofstream(Data() / "secret.txt") << Page(1000);
    fs::create_symlink(Data() / "secret.txt", Root() / "out.txt");
    fs::create_symlink("../data/secret.txt", Root() / "relative.txt");
    fs::create_directory_symlink(Data(), Root() / "outside");
    fs::create_directory_symlink(fs::absolute(Root() / "real"), Root() / "inside");
    fs::create_symlink("loop.txt", Root() / "loop.txt");
    fs::create_directory(Root().string() + "2");  // a neighbour whose name begins alike
    std::ofstream(Root().string() + "2/page.txt") << Page(1000);
    fs::create_symlink(Root().string() + "2/page.txt", Root() / "neighbour.txt");
    mkfifo((Root() / "pipe.txt").c_str(), 0600);
    const std::pair<const char*, int> cases[] = {
        {"/out.txt", 403},       {"/relative.txt", 403}, {"/outside/secret.txt", 403}, {"/loop.txt", 403},
        {"/neighbour.txt", 403}, {"/pipe.txt", 403},     {"/inside/page.txt", 200},
    };
    for (const auto& [url, status] : cases) EXPECT_EQ(Get(url).status, status) << url;
    EXPECT_EQ(CheckConsistency(), 1U);
}

TEST_F(ResponderTest, TheSecondRequestComesFromTheCache)
{
    Start();
    const auto page = Page(50'000);
    WriteFile("dir/page.html", page);
    for (const bool fromCache : {false, true, true}) {
        const auto response = Get("/dir/page.html");
        EXPECT_EQ(response.fromCache, fromCache);
        EXPECT_EQ(response.encoding, Encoding::Gzip);
        EXPECT_EQ(Unpacked(response), page);
    }
    EXPECT_FALSE(Get("/dir/page.html", false, false).encoding);
    const auto statistics = Statistics("dir/page.html");
    EXPECT_EQ(statistics.totalHits, 3);
    EXPECT_EQ(statistics.cacheHits, 2);
    EXPECT_GT(statistics.cpuTime, 0U);
    EXPECT_LT(statistics.cpuTime, 10'000'000U);

    const auto response = Get("/dir/page.html", false, true);
    EXPECT_EQ(response.encoding, Encoding::Deflate);  // a version of its own, beside the first
    EXPECT_EQ(Unpacked(response), page);
    EXPECT_EQ(CheckConsistency(), 2U);
}

TEST_F(ResponderTest, RecordsSayWhatWasCached)
{
    Start();
    WriteFile("page.html", Page(50'000));
    const auto before = TicksNow();
    Get("/page.html?v=1");
    const auto keys = Keys();
    const auto& url = keys.at("LM/W3SVC/1/Root/page.html");
    const auto hash = HashQuery("v=1");
    const auto& variant = keys.at("LM/W3SVC/1/Root/page.html/" + QueryHashText(hash));
    EXPECT_FALSE(url.Has(Prop::GzipRecord));  // never asked for without a query
    const auto record = ParseCacheRecord(variant.Find(Prop::GzipRecord)->bytes).value();
    EXPECT_EQ(record.queryHash, hash);
    EXPECT_EQ(record.uncompressedSize, fs::file_size(Root() / "page.html"));
    EXPECT_GE(record.cacheTicks, before);
    EXPECT_LE(record.cacheTicks, TicksNow());
    EXPECT_EQ(record.expiresTicks, record.cacheTicks + 30 * 864'000'000'000U);

    for (const char* query : {"?v=2", "?v=1", "?", ""})
        EXPECT_EQ(Get("/page.html" + std::string(query)).status, 200);
    EXPECT_EQ(CheckConsistency(), 3U);
    EXPECT_EQ(Statistics("page.html").totalHits, 5);
    EXPECT_EQ(Statistics("page.html/" + QueryHashText(hash)).totalHits, 2);
}

TEST_F(ResponderTest, AChangedFileReplacesItsVersionAndALostOneIsMadeAnew)
{
    Start();
    WriteFile("page.html", Page(5000));
    Get("/page.html");
    usleep(20'000);
    WriteFile("page.html", Page(6000, 1));
    EXPECT_EQ(Unpacked(Get("/page.html")), Page(6000, 1));
    EXPECT_EQ(Statistics("page.html").overwrites, 1);
    EXPECT_TRUE(Get("/page.html").fromCache);

    fs::last_write_time(Root() / "page.html", fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_FALSE(Get("/page.html").fromCache);
    const CachedFile file{1, Encoding::Gzip, 0};
    fs::resize_file(service->Cache().Root() / file.Path(), 10);
    EXPECT_EQ(Unpacked(Get("/page.html")), Page(6000, 1));
    fs::remove_all(service->Cache().Root());
    EXPECT_EQ(Unpacked(Get("/page.html")), Page(6000, 1));
    EXPECT_TRUE(Get("/page.html").fromCache);
    EXPECT_EQ(CheckConsistency(), 1U);
}

TEST_F(ResponderTest, WhatGainsNothingIsSentAsItIs)
{
    Start();
    std::string noise;
    for (unsigned seed = 1; noise.size() < 5000; seed = seed * 1664525 + 1013904223)
        noise += static_cast<char>(seed >> 24U);
    WriteFile("noise.txt", noise);
    WriteFile("small.txt", Page(200).substr(0, 255));
    EXPECT_EQ(Text(Get("/noise.txt").body), noise);
    EXPECT_FALSE(Get("/small.txt").encoding);
    EXPECT_EQ(CheckConsistency(), 0U);

    WriteFile("huge.html", "");
    fs::resize_file(Root() / "huge.html", std::uint64_t{1} << 40U);
    EXPECT_EQ(Get("/huge.html").status, 413);
}

TEST_F(ResponderTest, AVanishedDocumentRootLosesNothingElse)
{
    Start();
    WriteFile("page.html", Page(5000));
    Get("/page.html");
    fs::rename(Root(), Root().string() + ".away");
    EXPECT_EQ(Get("/page.html").status, 404);
    EXPECT_EQ(CheckConsistency(), 1U);
    fs::rename(Root().string() + ".away", Root());
    EXPECT_TRUE(Get("/page.html").fromCache);
}

TEST_F(ResponderTest, SeveralThreadsShareAService)
{
    Start();
    for (int i = 0; i < 20; ++i) WriteFile(std::to_string(i) + ".html", Page(3000, i));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([this, thread] {
            Responder own(service);
            for (int i = 0; i < 200; ++i) {
                const int page = (i * 7 + thread) % 20;
                const auto response = own.Answer({1, "/" + std::to_string(page) + ".html", true, true});
                EXPECT_EQ(Unpacked(*response), Page(3000, page));
                const bool deletes = thread == 0 && i % 50 == 25;
                EXPECT_TRUE(!deletes || service->DeleteTree("LM/W3SVC"));
            }
        });
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(service->Counters()->responsesCacheable, 800U);
    CheckConsistency();
}
