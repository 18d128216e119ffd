#include "settings/Registry.h"

#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using Texts = std::vector<std::string>;
using Values = std::vector<std::pair<std::string, RegistryValue>>;
using namespace std::string_literals;

std::vector<std::uint8_t> Raw(std::string_view text)
{
    return {AsBytes(text).begin(), AsBytes(text).end()};
}

// The key Software\Test of the user.
class RegistryTest : public testing::Test {
protected:
    RegistryTest()
    {
        registry.hKey = kCurrentUser;
        registry.KeyRoot = "Software\\Test";
        EXPECT_TRUE(registry.CreateKey());
    }

    // Stores bytes that Registry itself would not write.
    void Store(std::string_view name, std::uint32_t type, std::string_view bytes)
    {
        const auto key = store->OpenKey(kCurrentUser, registry.KeyRoot, kKeyWrite).key;
        EXPECT_EQ(store->SetValue(key, name, type, AsBytes(bytes)), 0U);
    }

    HiveRig rig;
    std::unique_ptr<RegistryStore> store = rig.Open();
    Registry registry{*store};
};

TEST_F(RegistryTest, ValuesOfEveryKindComeBackWhole)
{
    setenv("QuilletTestName", "expanded", 1);
    const struct {
        std::uint32_t type;
        RegistryValue written, read;
    } cases[] = {
        {kRegSz, ""s, ""s},
        {kRegSz, std::string(3000, 'x'), std::string(3000, 'x')},
        {kRegExpandSz, "<%QuilletTestName%|%QuilletTestNone%>"s, "<expanded|%QuilletTestNone%>"s},
        {kRegBinary, std::vector<std::uint8_t>(5000, 7), std::vector<std::uint8_t>(5000, 7)},
        {kRegDword, -2, -2},
        {kRegDword, " +12 "s, 12},
        {kRegDword, {}, 0},
        {kRegMultiSz, Texts{"a", "", "\xc3\xa4"}, Texts{"a", "", "\xc3\xa4"}},
    };
    for (const auto& [type, written, read] : cases) {
        EXPECT_EQ(registry.SetRegistryValue("v", written, type), true);
        EXPECT_EQ(registry.GetRegistryValue("V", "default"s), read);
    }
    EXPECT_EQ(registry.SetRegistryValue("v", Texts{"A", "B"}, kRegMultiSz), true);
    const auto key = store->OpenKey(kCurrentUser, registry.KeyRoot, kKeyRead).key;
    EXPECT_EQ(TextAt(*store, key, "v"), "A\0B\0\0"s);
    EXPECT_EQ(registry.SetRegistryValue("v", 0x01020380, kRegDword), true);
    EXPECT_EQ(TextAt(*store, key, "v"), "\x80\x03\x02\x01");
}

TEST_F(RegistryTest, WhatCannotBeWrittenLeavesTheValueAsItWas)
{
    EXPECT_EQ(registry.SetRegistryValue("v", "kept"s, kRegSz), true);
    const struct {
        std::uint32_t type;
        RegistryValue value;
    } cases[] = {
        {kRegSz, Texts{"a"}}, {kRegBinary, "text"s},      {kRegDword, "ten"s}, {kRegDword, "1.5"s},
        {kRegDword, ""s},     {kRegDword, "2147483648"s}, {kRegDword, "+-1"s}, {kRegDword, Raw("1234")},
        {0, "text"s},         {11, Raw("12345678")},
    };
    for (const auto& [type, value] : cases) EXPECT_EQ(registry.SetRegistryValue("v", value, type), false);
    const auto refused = registry.SetRegistryValue("v", "no list"s, kRegMultiSz);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, 5U);
    EXPECT_EQ(refused.error().description, "Invalid procedure call or argument");
    EXPECT_EQ(registry.GetRegistryValue("v"), RegistryValue("kept"s));
}

TEST_F(RegistryTest, StoredBytesOfAnyShapeAreRead)
{
    setenv("QuilletTestName", "x", 1);
    const RegistryValue fallback = 77;
    const struct {
        std::uint32_t type;
        std::string bytes;
        RegistryValue read, listed;
    } cases[] = {
        {kRegSz, "", fallback, ""s},
        {kRegSz, "a\0b\0"s, "a\0b"s, "a\0b"s},
        {kRegExpandSz, "%QuilletTestName%\0b\0"s, "x\0b"s, "x"s},
        {kRegBinary, "\n\xff", Raw("\n\xff"), "0A FF"s},
        {kRegDword, "\1\0\0\x80zzz"s, -0x7fffffff, -0x7fffffff},
        {kRegDword, "\1\0\0"s, fallback, {}},
        {kRegMultiSz, "\0"s, Texts{}, ""s},
        {kRegMultiSz, "a\0b\0\0"s, Texts{"a", "b"}, "a,b"s},
        {kRegMultiSz, "ab", Texts{"ab"}, ""s},
        {kRegMultiSz, "a\0bc"s, Texts{"a", "bc"}, "a,"s},
        {99, "abcd", fallback, {}},
    };
    for (const auto& [type, bytes, read, listed] : cases) {
        Store("v", type, bytes);
        EXPECT_EQ(registry.GetRegistryValue("v", fallback), read) << type << ": " << bytes;
        EXPECT_EQ(registry.EnumRegistryValues(kCurrentUser, "software\\test\\"), (Values{{"v", listed}}));
    }
}

}  // namespace
