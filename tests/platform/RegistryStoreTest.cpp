#include "platform/RegistryStore.h"

#include "base/SystemError.h"
#include "platform/EnvironmentText.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

class RegistryStoreTest : public testing::Test {
protected:
    RegistryKey Make(std::string_view path)
    {
        const auto made = store->CreateKey(kCurrentUser, path, kKeyAllAccess);
        EXPECT_EQ(made.code, 0U) << path;
        return made.key;
    }

    std::string KeysOf(RegistryKey key) const
    {
        std::string list;
        for (std::uint32_t index = 0;; ++index) {
            const auto found = store->EnumKey(key, index, 260);
            if (found.code != 0) return list + std::to_string(found.code);
            list += found.name + " ";
        }
    }

    HiveRig rig;
    std::unique_ptr<RegistryStore> store = rig.Open();
};

TEST_F(RegistryStoreTest, PathsAreFoundInAnyCaseWithBackslashesToSpare)
{
    EXPECT_EQ(rig.trouble, "");
    Make("Software\\Äpfel\\Options\\");
    const std::string longest = std::string(253, 'n') + "\xc3\xa4\xc3\xa4";  // 255 characters
    Make(longest);
    std::string deep;
    for (std::size_t i = 0; i <= RegistryStore::kMostNames; ++i) deep += "a\\";
    const struct {
        std::string path;
        std::uint32_t code;
    } cases[] = {
        {"SOFTWARE\\äPFEL\\options", 0},
        {"Software\\\\Äpfel\\\\\\Options\\\\", 0},
        {"", 0},
        {longest, 0},
        {"\\Software", Code::BadPathName},
        {"Other\\Options", Code::FileNotFound},
        {longest + "n", Code::InvalidParameter},
        {std::string("So\0ftware", 9), Code::InvalidParameter},
        {deep, Code::InvalidParameter},
        {deep.substr(2), Code::FileNotFound},
    };
    for (const auto& [path, code] : cases)
        EXPECT_EQ(store->OpenKey(kCurrentUser, path, kKeyRead).code, code) << path;
    EXPECT_EQ(store->CreateKey(kCurrentUser, deep, kKeyAllAccess).code, Code::InvalidParameter);
    EXPECT_FALSE(store->CreateKey(kCurrentUser, "SOFTWARE\\äPFEL", kKeyAllAccess).created);
    EXPECT_TRUE(store->CreateKey(kCurrentUser, "Software\\a\\b", kKeyAllAccess).created);
    EXPECT_EQ(KeysOf(store->OpenKey(kCurrentUser, "software", kKeyRead).key), "a Äpfel 259");
}

TEST_F(RegistryStoreTest, ValuesKeepTypeBytesAndTheCaseOfTheirNames)
{
    const auto key = Make("k");
    const std::string odd("\0\xff\0", 3);
    EXPECT_EQ(store->SetValue(key, "Name", 77, AsBytes(odd)), 0U);
    EXPECT_EQ(store->SetValue(key, "", kRegBinary, {}), 0U);
    EXPECT_EQ(store->SetValue(key, "NAME", kRegSz, AsBytes("longer")), 0U);
    EXPECT_EQ(TextAt(*store, key, "nAmE"), "longer");
    EXPECT_EQ(TextAt(*store, key, ""), "");
    EXPECT_EQ(TextAt(*store, key, "no"), "(2)");

    std::array<std::uint8_t, 6> buffer{};
    auto read = store->QueryValue(key, "Name", std::span(buffer).first(5));
    EXPECT_EQ(read.code, Code::MoreData);
    EXPECT_EQ(read.size, 6U);
    EXPECT_EQ(buffer[0], 0);  // untouched
    read = store->EnumValue(key, 0, 5, buffer);
    EXPECT_EQ(std::tie(read.code, read.type, read.size, read.name), std::tuple(0U, kRegSz, 6U, "Name"));
    EXPECT_EQ(store->EnumValue(key, 2, 4, buffer).code, Code::NoMoreItems);

    EXPECT_EQ(store->DeleteValue(key, "NAMe"), 0U);
    EXPECT_EQ(store->DeleteValue(key, "name"), Code::FileNotFound);
    EXPECT_EQ(store->SetValue(key, std::string(16384, 'n'), 1, {}), Code::InvalidParameter);
    EXPECT_EQ(store->SetValue(key, std::string(16383, 'n'), 1, {}), 0U);
    const std::vector<std::uint8_t> largest(RegistryStore::kMostValueBytes + 1, 7);
    EXPECT_EQ(store->SetValue(key, "big", 3, largest), Code::InvalidParameter);
    EXPECT_EQ(store->SetValue(key, "big", 3, std::span(largest).first(largest.size() - 1)), 0U);
    EXPECT_EQ(store->QueryValue(key, "big", {}).size, largest.size() - 1);
}

TEST_F(RegistryStoreTest, OnlyAKeyWithoutSubkeysIsDeletedAndStaysSo)
{
    const auto key = Make("k\\sub");
    EXPECT_EQ(SetText(*store, key, "v", "x"), 0U);
    EXPECT_EQ(store->DeleteKey(kCurrentUser, "k"), Code::AccessDenied);
    EXPECT_EQ(store->DeleteKey(kCurrentUser, ""), Code::AccessDenied);
    EXPECT_EQ(store->DeleteKey(kCurrentUser, "K\\SUB\\"), 0U);
    EXPECT_EQ(store->DeleteKey(kCurrentUser, "k\\sub"), Code::FileNotFound);

    const auto again = Make("k\\sub");
    EXPECT_EQ(TextAt(*store, again, "v"), "(2)");
    EXPECT_EQ(TextAt(*store, key, "v"), "(1018)");
    EXPECT_EQ(store->CreateKey(key, "x", kKeyAllAccess).code, Code::KeyDeleted);
    EXPECT_EQ(store->CloseKey(key), 0U);
}

TEST_F(RegistryStoreTest, TwoProcessesSeeEachOthersWritesAtOnce)
{
    constexpr int kWrites = 100;
    const auto writeMany = [](RegistryStore& to, std::string_view names) {
        const auto key = to.OpenKey(kCurrentUser, "k", kKeyAllAccess).key;
        for (int i = 0; i < kWrites; ++i)
            EXPECT_EQ(SetText(to, key, std::string(names) + std::to_string(i), "x"), 0U);
    };
    EXPECT_EQ(SetText(*store, Make("k"), "v", "parent"), 0U);
    store.reset();
    const pid_t child = StartChild([&] {
        const auto mine = rig.Open();
        EXPECT_EQ(rig.trouble, "");
        const auto key = mine->OpenKey(kCurrentUser, "k", kKeyAllAccess).key;
        EXPECT_EQ(TextAt(*mine, key, "v"), "parent");
        writeMany(*mine, "child");
        EXPECT_EQ(SetText(*mine, key, "v", "child"), 0U);
    });
    store = rig.Open();
    const auto key = Make("k");
    writeMany(*store, "parent");
    EXPECT_TRUE(EndsWell(child));
    EXPECT_EQ(TextAt(*store, key, "v"), "child");
    EXPECT_EQ(store->EnumValue(key, 2 * kWrites, 260, {}).code, Code::MoreData);
    EXPECT_EQ(store->EnumValue(key, 2 * kWrites + 1, 260, {}).code, Code::NoMoreItems);
}

TEST_F(RegistryStoreTest, AMachineHiveIsReadAndNeverWritten)
{
    EXPECT_EQ(KeysOf(kLocalMachine), "259");
    EXPECT_EQ(store->CreateKey(kLocalMachine, "k", kKeyAllAccess).code, Code::AccessDenied);
    EXPECT_EQ(SetText(*store, kLocalMachine, "v", "x"), Code::AccessDenied);
    EXPECT_EQ(SetText(*store, Make("k"), "v", "of the machine"), 0U);
    EXPECT_EQ(store->DeleteValue(kLocalMachine, "v"), Code::AccessDenied);
    store.reset();
    std::filesystem::copy_file(rig.User(), rig.Machine());
    store = rig.Open();
    EXPECT_EQ(rig.trouble, "");
    const auto key = store->OpenKey(kLocalMachine, "K", kKeyRead);
    EXPECT_EQ(TextAt(*store, key.key, "v"), "of the machine");
    EXPECT_EQ(store->OpenKey(kLocalMachine, "k", kKeyWrite).code, Code::AccessDenied);
    EXPECT_EQ(store->DeleteKey(kLocalMachine, "k"), Code::AccessDenied);
    rig.Put(rig.Machine(), "rubbish");
    store = rig.Open();
    EXPECT_NE(rig.trouble.find("machine.hive"), std::string::npos);
    EXPECT_EQ(KeysOf(kLocalMachine), "259");
    EXPECT_EQ(HiveRig::BytesIn(rig.Machine()), "rubbish");
}

TEST(EnvironmentText, HasABound)
{
    setenv("QuilletTestA", std::string(100'000, 'a').c_str(), 1);
    std::string many;
    for (int i = 0; i < 1000; ++i) many += "%QuilletTestA%";
    const auto bounded = ExpandEnvironmentText(many);
    EXPECT_LE(bounded.size(), kMostExpandedText);
    EXPECT_TRUE(bounded.ends_with("%QuilletTestA%"));
}

}  // namespace

TEST_F(RegistryStoreTest, HandlesDoWhatTheirRightsSay)
{
    Make("k\\sub");
    const auto reader = store->OpenKey(kCurrentUser, "k", kKeyRead).key;
    const auto writer = store->OpenKey(kCurrentUser, "k", kKeyWrite).key;
    EXPECT_EQ(SetText(*store, reader, "v", "x"), Code::AccessDenied);
    EXPECT_EQ(SetText(*store, writer, "v", "x"), 0U);
    EXPECT_EQ(store->DeleteValue(reader, "v"), Code::AccessDenied);
    EXPECT_EQ(TextAt(*store, writer, "v"), "(5)");
    EXPECT_EQ(TextAt(*store, reader, "v"), "x");
    EXPECT_EQ(KeysOf(writer), "5");
    EXPECT_EQ(KeysOf(reader), "sub 259");
    EXPECT_EQ(store->OpenKey(kCurrentUser, "k", 0x80000000).code, Code::InvalidParameter);

    EXPECT_EQ(store->CloseKey(reader), 0U);
    for (const RegistryKey bad : {reader, RegistryKey{0}, RegistryKey{0x80000000}, RegistryKey{12345}}) {
        EXPECT_EQ(store->CloseKey(bad), Code::InvalidHandle);
        EXPECT_EQ(store->OpenKey(bad, "k", kKeyRead).code, Code::InvalidHandle);
        EXPECT_EQ(TextAt(*store, bad, "v"), "(6)");
        EXPECT_EQ(store->DeleteKey(bad, "k"), Code::InvalidHandle);
    }
    EXPECT_EQ(store->CloseKey(kCurrentUser), 0U);
    EXPECT_EQ(KeysOf(kCurrentUser), "k 259");
}
