#include "zentrel/ServiceRig.h"

#include <sys/stat.h>

using namespace zentrel;
namespace fs = std::filesystem;

namespace {

class WarmTest : public ServiceRig {
protected:
    WarmResult Run(const WarmOptions& options)
    {
        std::uint64_t last = 0;
        const auto result = Warm(*service, options, [&](std::uint64_t done, std::uint64_t) {
            EXPECT_EQ(done, last + 1);
            last = done;
            return true;
        });
        EXPECT_TRUE(result);
        return result.value_or(WarmResult{0, 999});
    }

    std::vector<std::string> CachedUrls() const
    {
        std::vector<std::string> urls;
        for (const auto& [path, properties] : Keys())
            if (properties.Has(Prop::CacheId))
                urls.push_back(path.substr(std::string("LM/W3SVC/1/Root").size()));
        return urls;
    }
};

}  // namespace

TEST_F(WarmTest, WhatAClientCouldAskForIsCachedWithoutCountingRequests)
{
    Start(Encoding::Deflate);
    const auto target = Data() / "target";
    for (const char* file : {"b.html", "a/x.css", "a/y.png", "api/hidden.html", "small.txt", "bad\xFF.html"})
        WriteFile(file, Page(std::string_view(file) == "small.txt" ? 10 : 2000));
    WriteFile("\xFFolder/page.html", Page(2000));
    fs::create_directory(target);
    std::ofstream(target / "v.txt") << Page(2000);
    ASSERT_TRUE(service->AddVirtualDir(1, "api", target));
    fs::create_directory_symlink(Root(), Root() / "loop");
    fs::create_symlink(Root() / "b.html", Root() / "link.html");
    fs::create_symlink(Data() / "metabase.mdb", Root() / "out.html");
    mkfifo((Root() / "pipe.html").c_str(), 0600);

    const auto first = Run({1});
    EXPECT_EQ(first.cached, 4U);   // b, a/x, link, api/v
    EXPECT_EQ(first.skipped, 6U);  // y.png, small, two bad names, the loop, out
    EXPECT_EQ(CachedUrls(), (std::vector<std::string>{"/a/x.css", "/api/v.txt", "/b.html", "/link.html"}));
    EXPECT_EQ(Statistics("b.html").totalHits, 0);
    EXPECT_EQ(service->Counters()->responsesCacheable, 0U);
    EXPECT_EQ(Run({1}).cached, 4U);
    EXPECT_EQ(Statistics("b.html").overwrites, 0);  // nothing was made twice
    EXPECT_EQ(CheckConsistency(), 4U);
    EXPECT_EQ(Get("/b.html").encoding, Encoding::Deflate);
}

TEST_F(WarmTest, PartsOfASiteAreWarmed)
{
    Start();
    for (int i = 0; i < 10; ++i) {
        WriteFile("a/b/" + std::to_string(i) + ".txt", Page(2000));
        WriteFile("ab/" + std::to_string(i) + ".txt", Page(2000));
    }
    ASSERT_TRUE(service->AddVirtualDir(1, "a/v", Root() / "ab"));
    EXPECT_EQ(Run({1, "/a/b/", 3}).cached, 3U);
    EXPECT_EQ(CachedUrls(), (std::vector<std::string>{"/a/b/0.txt", "/a/b/1.txt", "/a/b/2.txt"}));
    EXPECT_EQ(Run({1, "a", 1000}).cached, 20U);
    EXPECT_EQ(Warm(*service, {1, "a/../b"}, {}).error().code, Code::InvalidName);

    int calls = 0;
    const auto stopped = Warm(*service, {1}, [&](std::uint64_t, std::uint64_t) { return ++calls < 4; });
    EXPECT_EQ(calls, 4);
    EXPECT_GE(stopped->cached, 4U);
    EXPECT_EQ(CheckConsistency(), CachedUrls().size());
}
