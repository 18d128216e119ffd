#include "platform/AnsweredKeys.h"

#include "base/SystemError.h"
#include "platform/SystemInformation.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using namespace std::string_literals;

std::vector<AnsweredKey> Fruit()
{
    return {{"Food\\Fruit", [] {
                 return std::vector<AnsweredValue>{{"Apple", "red"}, {"Pear", "green"}, {"Plum", ""}};
             }}};
}

std::string ValuesOf(const RegistryStore& store, RegistryKey key)
{
    std::string list;
    for (std::uint32_t index = 0;; ++index) {
        const auto read = store.EnumValue(key, index, 260, {});
        if (read.code != Code::MoreData) return list + std::to_string(read.code);
        list += read.name + ' ';
    }
}

TEST(AnsweredKeys, AreReadLikeThoseOfAHiveAndNeverWritten)
{
    HiveRig rig;
    std::string trouble;
    const auto store = RegistryStore::Open(rig.User(), rig.Machine(), trouble, Fruit());
    const auto key = store->OpenKey(kLocalMachine, "FOOD\\\\fruit\\", kKeyRead);
    ASSERT_EQ(key.code, 0U);
    EXPECT_EQ(TextAt(*store, key.key, "APPLE"), "red\0"s);
    EXPECT_EQ(TextAt(*store, key.key, "plum"), "\0"s);
    EXPECT_EQ(TextAt(*store, key.key, "Cherry"), "(2)");
    const auto tooSmall = store->QueryValue(key.key, "Apple", {});
    EXPECT_EQ(tooSmall.code, Code::MoreData);
    EXPECT_EQ(tooSmall.size, 4U);
    EXPECT_EQ(ValuesOf(*store, key.key), "Apple Pear Plum 259");
    EXPECT_EQ(store->EnumKey(key.key, 0, 260).code, Code::NoMoreItems);
    EXPECT_EQ(SetText(*store, key.key, "Apple", "x"), Code::AccessDenied);
    EXPECT_EQ(store->OpenKey(kLocalMachine, "Food\\Fruit", kKeyWrite).code, Code::FileNotFound);
    EXPECT_EQ(store->CreateKey(kLocalMachine, "Food\\Fruit", kKeyAllAccess).code, Code::AccessDenied);
    EXPECT_EQ(store->OpenKey(kLocalMachine, "Food", kKeyRead).code, Code::FileNotFound);
    EXPECT_EQ(store->OpenKey(kCurrentUser, "Food\\Fruit", kKeyRead).code, Code::FileNotFound);
    EXPECT_EQ(store->CloseKey(key.key), 0U);
}

TEST(AnsweredKeys, ValuesOfTheHiveComeFirst)
{
    HiveRig rig;
    std::string trouble;
    {
        const auto writer = RegistryStore::Open(rig.Machine(), rig.Folder() / "none", trouble);
        const auto key = writer->CreateKey(kCurrentUser, "food\\fruit", kKeyAllAccess);
        EXPECT_EQ(SetText(*writer, key.key, "Cherry", "dark"), 0U);
        EXPECT_EQ(SetText(*writer, key.key, "PEAR", "yellow"), 0U);
    }
    const auto store = RegistryStore::Open(rig.User(), rig.Machine(), trouble, Fruit());
    const auto key = store->OpenKey(kLocalMachine, "Food\\Fruit", kKeyRead).key;
    EXPECT_EQ(TextAt(*store, key, "pear"), "yellow");
    EXPECT_EQ(TextAt(*store, key, "apple"), "red\0"s);
    EXPECT_EQ(ValuesOf(*store, key), "Cherry PEAR Apple Plum 259");
}

TEST(SystemInformation, IsTheFirstKnownProgramInTheFoldersOfPath)
{
    const HiveRig rig;
    const auto put = [&rig](const std::string& name, bool isProgram) {
        const auto file = rig.Folder() / name;
        std::filesystem::create_directories(file.parent_path());
        rig.Put(file, "");
        if (isProgram) std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file;
    };
    const auto folder = rig.Folder().string();
    EXPECT_TRUE(EndsWell(StartChild([&] {
        setenv("PATH", (folder + "/none::." + ":" + folder + "/a:" + folder + "/b").c_str(), 1);
        EXPECT_EQ(SystemInformationProgram(), "");
        std::filesystem::create_directories(rig.Folder() / "a" / "kinfocenter");
        put("a/hardinfo2", false);
        const auto late = put("b/hardinfo", true);
        EXPECT_EQ(SystemInformationProgram(), late);
        const auto early = put("b/hardinfo2", true);
        EXPECT_EQ(SystemInformationProgram(), early);
        unsetenv("PATH");
        EXPECT_EQ(SystemInformationProgram(), "");
    })));
}

}  // namespace
