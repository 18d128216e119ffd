#include "platform/AnsweredKeys.h"

#include "base/SystemError.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(store->OpenKey(kCurrentUser, "Food\\Fruit", kKeyRead).code, Code::FileNotFound);
    EXPECT_EQ(store->CloseKey(key.key), 0U);
}

}  // namespace
