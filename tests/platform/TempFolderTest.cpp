#include "platform/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
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
        const auto folder = TempFolder::Make("quillet-test-");
        ASSERT_TRUE(folder);
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

TEST(TempFolder, MovesWithItsOwner)
{
    auto first = TempFolder::Make("a");
    auto second = TempFolder::Make("b");
    ASSERT_TRUE(first && second);
    const fs::path firstPath = first->Path(), secondPath = second->Path();
    {
        TempFolder owner = std::move(*first);
        EXPECT_TRUE(first->Path().empty());
        owner = std::move(*second);
        EXPECT_FALSE(fs::exists(firstPath));
        EXPECT_EQ(owner.Path(), secondPath);
        EXPECT_TRUE(fs::exists(secondPath));
    }
    EXPECT_FALSE(fs::exists(secondPath));
}

TEST(TempFolder, FollowsTmpdirAndTellsWhyItCannotBeMade)
{
    const auto folder = TempFolder::Make("base");
    ASSERT_TRUE(folder);
    const char* before = std::getenv("TMPDIR");
    const std::string kept = before != nullptr ? before : "";
    setenv("TMPDIR", folder->Path().c_str(), 1);
    const auto inside = TempFolder::Make("x");
    setenv("TMPDIR", (folder->Path() / "missing").c_str(), 1);
    const auto missing = TempFolder::Make("x");
    if (before != nullptr)
        setenv("TMPDIR", kept.c_str(), 1);
    else
        unsetenv("TMPDIR");

    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->Path().parent_path(), folder->Path());
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, Code::FileNotFound);
    const auto climbing = TempFolder::Make("../x");
    ASSERT_FALSE(climbing);
    EXPECT_EQ(climbing.error().code, Code::InvalidName);
}

}  // namespace
