#include "zentrel/ServiceRig.h"

#include <fcntl.h>

using namespace zentrel;
namespace fs = std::filesystem;

namespace {

class RecoveryTest : public ServiceRig {
protected:
    void WritePages(int seed) const
    {
        for (int i = 0; i < 60; ++i)
            WriteFile("d" + std::to_string(i % 7) + "/p" + std::to_string(i) + ".html",
                      Page(2000 + 200 * i, seed));
    }

    // What a busy writer does, for ever; `begun` is told when the first file is about to be cached.
    void Work(int seed, int begun)
    {
        WritePages(seed);
        Reopen(Service::Role::Writer);
        EXPECT_EQ(write(begun, "", 1), 1);
        for (;; WritePages(++seed)) {
            EXPECT_TRUE(Warm(*service, {1}, {}));
            for (int i = 0; i < 60; i += 7) {
                const auto url = "/d" + std::to_string(i % 7) + "/p" + std::to_string(i) + ".html?";
                Get(url + std::to_string(seed), seed % 2 == 0);
            }
            EXPECT_TRUE(service->DeleteTree("LM/W3SVC/1/Root/d" + std::to_string(seed % 7)));
        }
    }

    fs::path Cached(const CachedFile& file) const { return service->Cache().Root() / file.Path(); }
};

}  // namespace

TEST_F(RecoveryTest, AWriterKilledAtAnyMomentLeavesNothingThatTheNextOneCannotPutRight)
{
    Start();
    int pipe[2];
    ASSERT_EQ(::pipe2(pipe, O_CLOEXEC), 0);
    int clearedUp = 0;
    for (int round = 0; round < 15; ++round) {
        Close();
        const auto work = [&] {
            Work(round, pipe[1]);
            return 1;
        };
        const auto ended = InChild(work, [&](pid_t child) {
            char begun = 0;
            EXPECT_EQ(read(pipe[0], &begun, 1), 1);
            usleep(static_cast<useconds_t>(1000 + 8700 * round));
            kill(child, SIGKILL);
        });
        ASSERT_EQ(ended, -SIGKILL);
        const auto left = CountFiles();
        ASSERT_NO_FATAL_FAILURE(Reopen(Service::Role::Writer));
        clearedUp += CheckConsistency() < left ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << "round " << round;
        WritePages(round);
        EXPECT_EQ(Warm(*service, {1}, {})->cached, 60U);
        EXPECT_GE(CheckConsistency(), 60U);
    }
    EXPECT_GT(clearedUp, 0);  // the moments were worth something
    close(pipe[0]);
    close(pipe[1]);
}

TEST_F(RecoveryTest, WhatIsDamagedGoesAndAllElseStays)
{
    Start();
    for (const char* name : {"good", "missing", "short", "variants"})
        WriteFile("dir/" + std::string(name) + ".html", Page(5000));
    for (const char* url : {"good", "missing", "short"}) Get("/dir/" + std::string(url) + ".html");
    Get("/dir/variants.html?1");
    Get("/dir/variants.html?2");
    Get("/dir/good.html", false, true);
    const CachedFile lostVariant{4, Encoding::Gzip, HashQuery("1")};
    const CachedFile orphan{9, Encoding::Gzip, 0};
    const auto notes = service->Cache().Root() / "notes.txt";
    const auto temporary = service->Cache().Root() / "tmp" / "new";
    ASSERT_EQ(CheckConsistency(), 6U);
    for (const bool crashed : {false, true}) {
        fs::remove(Cached({2, Encoding::Gzip, 0}));
        fs::resize_file(Cached({3, Encoding::Gzip, 0}), 10);
        fs::remove(Cached(lostVariant));
        ASSERT_TRUE(service->Cache().Place(std::move(*service->Cache().Stage(Bytes(10))), orphan));
        std::ofstream(notes) << "not the cache's";
        std::ofstream(temporary) << "half a file";
        Reopen(Service::Role::Viewer);
        if (crashed) std::ofstream(Data() / "unclean");
        Reopen(Service::Role::Writer);
        EXPECT_EQ(fs::exists(Cached(orphan)), !crashed);  // only after a crash is there anything to look for
    }
    EXPECT_FALSE(fs::exists(temporary));
    EXPECT_TRUE(fs::remove(notes));
    EXPECT_EQ(CheckConsistency(), 3U);
    const auto keys = Keys();
    EXPECT_FALSE(keys.contains("LM/W3SVC/1/Root/dir/missing.html"));
    EXPECT_FALSE(keys.contains("LM/W3SVC/1/Root/dir/short.html"));
    EXPECT_TRUE(keys.contains("LM/W3SVC/1/Root/dir/variants.html/" + QueryHashText(HashQuery("2"))));
    EXPECT_EQ(Statistics("dir/good.html").totalHits, 2);

    fs::remove_all(service->Cache().Root());
    Reopen(Service::Role::Viewer);
    std::ofstream(Data() / "unclean");
    Reopen(Service::Role::Writer);
    EXPECT_EQ(Keys().rbegin()->first, "LM/W3SVC/1/Root");
}
