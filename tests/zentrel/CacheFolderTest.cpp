#include "zentrel/CacheFolder.h"

#include "platform/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

using namespace zentrel;
namespace fs = std::filesystem;

namespace {

const Bytes kBody(100, std::byte{7});

struct Cache {
    TempFolder top = std::move(*TempFolder::Make("zentrel-test"));
    CacheFolder folder{top.Path() / "cache"};

    Done Write(const CachedFile& file, std::span<const std::byte> bytes) const
    {
        auto staged = folder.Stage(bytes);
        return staged ? folder.Place(std::move(*staged), file) : Done(Fail(staged.error()));
    }

    std::vector<CachedFile> Files() const
    {
        std::vector<CachedFile> files;
        EXPECT_TRUE(folder.ForEachFile([&](const CachedFile& file) {
            files.push_back(file);
            return Done{};
        }));
        std::sort(files.begin(), files.end());
        return files;
    }
};

}  // namespace

TEST(CachedFile, OnlyTheNamesThatItMakesAreRead)
{
    const std::pair<CachedFile, std::string> cases[] = {
        {{1, Encoding::Gzip, 0}, "0/1.gzip"},
        {{0x1234, Encoding::Deflate, 0}, "12/1234.deflate"},
        {{0x7FFFFFFF, Encoding::Gzip, ~std::uint64_t{0}}, "7FFFFF/7FFFFFFF/FFFFFFFFFFFFFFFF.gzip"},
        {{0x1234, Encoding::Gzip, 0xABCD}, "12/1234/00000000ABCD.gzip"},
        {{0x1234, Encoding::Gzip, 0x1'0000'000F}, "12/1234/00010000000F.gzip"},
    };
    for (const auto& [file, path] : cases) {
        EXPECT_EQ(file.Path(), path);
        EXPECT_EQ(CachedFile::Parse(path), file);
    }
    for (const auto* path :
         {"", ".gzip", "0/0.gzip", "0/1", "1/1.gzip", "0/01.gzip", "0/1.GZIP", "12/123a.gzip",
          "FFFFFFFF/FFFFFF00.gzip", "12/1234/ABCD.gzip", "12/1234/000000000000.gzip",
          "12/1234/00000000ABCD/x.gzip", "../0/1.gzip", "/0/1.gzip", "0/+1.gzip"})
        EXPECT_FALSE(CachedFile::Parse(path)) << path;
}

TEST(CacheFolder, FilesAreReplacedWholeAndLeaveNoEmptyFolders)
{
    Cache cache;
    const CachedFile file{0x1234, Encoding::Gzip, 0xABCD};
    const CachedFile neighbour{0x1235, Encoding::Deflate, 0};
    EXPECT_TRUE(cache.folder.Read(file).error().Is(Code::FileNotFound));
    EXPECT_TRUE(cache.folder.Remove({file}));
    ASSERT_TRUE(cache.Write(file, kBody));
    ASSERT_TRUE(cache.Write(neighbour, {}));
    ASSERT_TRUE(cache.Write(file, std::span(kBody).first(50)));
    EXPECT_EQ(cache.folder.Read(file)->size(), 50U);
    EXPECT_EQ(cache.folder.Size(neighbour).value(), 0U);
    EXPECT_TRUE(cache.folder.Stage(kBody));  // not put in its place
    EXPECT_TRUE(fs::is_empty(cache.folder.Root() / "tmp"));

    std::ofstream(cache.folder.Root() / "12" / "somebody's notes.txt") << "not the cache's";
    EXPECT_EQ(cache.Files(), (std::vector<CachedFile>{file, neighbour}));
    ASSERT_TRUE(
        cache.folder.ForEachFile([&](const CachedFile& each) { return cache.folder.Remove({each}); }));
    EXPECT_FALSE(fs::exists(cache.folder.Root() / "12" / "1234"));
    EXPECT_TRUE(fs::exists(cache.folder.Root() / "12" / "somebody's notes.txt"));
    EXPECT_TRUE(fs::exists(cache.folder.Root()));
}

TEST(CacheFolder, ALinkInThePlaceOfAFileOrFolderIsNotFollowed)
{
    Cache cache;
    const auto outside = cache.top.Path() / "outside";
    fs::create_directories(outside);
    std::ofstream(outside / "1234.gzip") << "secret";
    fs::create_directories(cache.folder.Root() / "13");
    fs::create_directory_symlink(outside, cache.folder.Root() / "12");
    fs::create_symlink(outside / "1234.gzip", cache.folder.Root() / "13" / "1300.gzip");

    const CachedFile below{0x1234, Encoding::Gzip, 0};
    EXPECT_FALSE(cache.folder.Read(below));
    EXPECT_FALSE(cache.folder.Size(below));
    EXPECT_FALSE(cache.Write(below, kBody));
    EXPECT_FALSE(cache.folder.Remove({below}));
    EXPECT_EQ(fs::file_size(outside / "1234.gzip"), 6U);

    const CachedFile link{0x1300, Encoding::Gzip, 0};
    EXPECT_FALSE(cache.folder.Read(link));
    EXPECT_FALSE(cache.folder.Size(link));
    ASSERT_TRUE(cache.Write(link, kBody));  // takes the link's place
    EXPECT_EQ(fs::file_size(outside / "1234.gzip"), 6U);
    EXPECT_EQ(cache.folder.Read(link).value(), kBody);
    EXPECT_TRUE(fs::is_empty(cache.folder.Root() / "tmp"));
}
