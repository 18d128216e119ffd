#include "base/SystemError.h"
#include "help/SystemInformationPath.h"
#include "help/VersionText.h"
#include "help/WebSite.h"
#include "settings/SettingsKey.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

namespace {

TEST(VersionText, TheRevisionHasThreeDigitsButTwoWhenItIsZero)
{
    const struct {
        int major, minor, revision;
        const char* text;
    } cases[] = {{1, 0, 0, "Version 1.0.00"},
                 {1, 0, 7, "Version 1.0.007"},
                 {2, 13, 42, "Version 2.13.042"},
                 {0, 1, 999, "Version 0.1.999"},
                 {10, 0, 12345, "Version 10.0.12345"}};
    for (const auto& [major, minor, revision, text] : cases)
        EXPECT_EQ(VersionText(major, minor, revision), text);
}

TEST(WebSite, OnlyAWebAddressOfTheSettingsIsTaken)
{
    HiveRig rig;
    const auto store = rig.Open();
    EXPECT_EQ(WebSiteAddress(*store), kWebSite);
    SettingsKey::Create(*store);
    SettingsKey key(*store);
    const struct {
        const char *setting, *address;
    } cases[] = {{" https://intranet.example/quillet ", "https://intranet.example/quillet"},
                 {"HTTP://a.example", "HTTP://a.example"},
                 {"file:///bin/sh", kWebSite},
                 {"intranet.example", kWebSite},
                 {"", kWebSite}};
    for (const auto& [setting, address] : cases) {
        key.SetText("WebSite", setting);
        EXPECT_EQ(WebSiteAddress(*store), address) << setting;
    }
    key.SetNumber("WebSite", 1);
    EXPECT_EQ(WebSiteAddress(*store), kWebSite);
}

// A store whose machine hive holds these values, each a text of a key.
struct MachineValue {
    std::string key, name, text;
};

std::unique_ptr<RegistryStore> StoreWith(HiveRig& rig, const std::vector<MachineValue>& values,
                                         std::vector<AnsweredKey> answered = {})
{
    std::string trouble;
    {
        const auto store = RegistryStore::Open(rig.Machine(), rig.Folder() / "none", trouble);
        for (const auto& value : values) {
            const auto key = store->CreateKey(kCurrentUser, value.key, kKeyAllAccess);
            EXPECT_EQ(SetText(*store, key.key, value.name, value.text + '\0'), 0U);
        }
    }
    return RegistryStore::Open(rig.User(), rig.Machine(), trouble, std::move(answered));
}

const std::string kInfo = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const std::string kLocation = "SOFTWARE\\Microsoft\\Shared Tools Location";

TEST(SystemInformationPath, ThePathComesFirstThenTheSharedToolsThatAreThere)
{
    const auto pathOf = [](const std::vector<MachineValue>& values, bool isThere) {
        HiveRig rig;
        auto own = values;
        for (auto& value : own)
            if (value.text == "tools") value.text = rig.Folder().string();
        if (isThere) rig.Put(rig.Folder() / "MSINFO32.EXE", "x");
        const auto store = StoreWith(rig, own);
        const auto path = SystemInformationPath(*store);
        return path.parent_path() == rig.Folder() ? "tools/" + path.filename().string() : path.string();
    };
    EXPECT_EQ(pathOf({{kInfo, "PATH", "/opt/a"}, {kLocation, "MSINFO", "tools"}}, true), "/opt/a");
    EXPECT_EQ(pathOf({{kLocation, "MSINFO", "tools"}}, true), "tools/MSINFO32.EXE");
    EXPECT_EQ(pathOf({{kInfo, "OTHER", "/opt/a"}, {kLocation, "MSINFO", "tools"}}, true),
              "tools/MSINFO32.EXE");
    EXPECT_EQ(pathOf({{kLocation, "MSINFO", "tools"}}, false), "");
    EXPECT_EQ(pathOf({}, true), "");
}

TEST(SystemInformationPath, ThePlatformAnswersWhereTheHiveDoesNot)
{
    const auto answered = [] {
        return std::vector<AnsweredKey>{{kInfo, [] {
                                             return std::vector<AnsweredValue>{{"PATH", "/usr/bin/info"}};
                                         }}};
    };
    HiveRig empty;
    EXPECT_EQ(SystemInformationPath(*StoreWith(empty, {}, answered())), "/usr/bin/info");
    HiveRig own;
    EXPECT_EQ(SystemInformationPath(*StoreWith(own, {{kInfo, "path", "/opt/a"}}, answered())), "/opt/a");
}

}  // namespace
