#include "zentrel/CacheFolder.h"

#include "platform/TempFolder.h"

#include <gtest/gtest.h>

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
};

}  // namespace

TEST(CachedFile, OnlyTheNamesThatItMakesAreRead)
{
    const std::pair<CachedFile, std::string> cases[] = {
        {{1, Encoding::Gzip, 0}, "0/1.gzip"},
        {{0x7FFFFFFF, Encoding::Gzip, ~std::uint64_t{0}}, "7FFFFF/7FFFFFFF/FFFFFFFFFFFFFFFF.gzip"},
        {{0x1234, Encoding::Deflate, 0xABCD}, "12/1234/00000000ABCD.deflate"},
    };
    for (const auto& [file, path] : cases) {
        EXPECT_EQ(file.Path(), path);
        EXPECT_EQ(CachedFile::Parse(path), file);
    }
    for (const auto* path :
         {"", "0/0.gzip", "1/1.gzip", "0/01.gzip", "0/1.GZIP", "12/123a.gzip", "FFFFFFFF/FFFFFF00.gzip",
          "12/1234/ABCD.gzip", "12/1234/00000000ABCD/x.gzip", "../0/1.gzip", "/0/1.gzip"})
        EXPECT_FALSE(CachedFile::Parse(path)) << path;
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
    EXPECT_FALSE(cache.Write(below, kBody));
    EXPECT_FALSE(cache.folder.Remove({below}));
    EXPECT_EQ(fs::file_size(outside / "1234.gzip"), 6U);

    const CachedFile link{0x1300, Encoding::Gzip, 0};
    EXPECT_FALSE(cache.folder.Read(link));
    ASSERT_TRUE(cache.Write(link, kBody));  // takes the link's place
    EXPECT_EQ(fs::file_size(outside / "1234.gzip"), 6U);
    EXPECT_EQ(cache.folder.Read(link).value(), kBody);
    EXPECT_TRUE(fs::is_empty(cache.folder.Root() / "tmp"));
}
