#include "platform/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace fs = std::filesystem;

namespace {

TEST(TempFolder, RemovesItselfAndNothingBesideIt)
{
    const auto outside = TempFolder::Make("outside-");
    ASSERT_TRUE(outside);
    std::ofstream(outside->Path() / "kept") << "x";
    fs::path path;
    {
        auto made = TempFolder::Make("quillet-test-");
        auto folder = TempFolder::Make("replaced");
        ASSERT_TRUE(made && folder);
        path = folder->Path();
        *folder = std::move(*made);
        EXPECT_TRUE(!fs::exists(path) && made->Path().empty());
        path = folder->Path();
        EXPECT_TRUE(path.is_absolute());
        EXPECT_EQ(path.filename().string().rfind("quillet-test-", 0), 0U);
        EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
        fs::create_directories(path / "a" / "b");
        std::ofstream(path / "a" / "b" / "file") << "x";
        fs::create_directory_symlink(outside->Path(), path / "link");
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(fs::exists(outside->Path() / "kept"));
}

}  // namespace
