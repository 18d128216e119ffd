#include "settings/SettingsStore.h"

#include "settings/RefreshIntervals.h"
#include "settings/Registry.h"
#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;

std::string Shown(const Settings& settings)
{
    std::ostringstream out;
    out << settings.SaveWindowPos << settings.SavePanels << settings.SaveView << settings.SaveAutoStats << ' '
        << settings.RememberServers << ' ' << settings.RememberLastServer << " '" << settings.LastServer
        << "' " << settings.StartConnectDialog << ' ' << static_cast<int>(settings.StartRemoteReg) << " |";
    for (const auto slot : settings.Sites.Slots()) out << slot << '|';
    for (const auto& server : settings.Servers) out << ' ' << server;
    return out.str();
}

constexpr const char* kDefaults = "1111 10 1 '' 1 2 |0|";

std::string Shown(const WindowPlacement& placement)
{
    std::ostringstream out;
    out << static_cast<int>(placement.state) << ": " << placement.left << ' ' << placement.top << ' '
        << placement.width << ' ' << placement.height;
    return out.str();
}

class SettingsStoreTest : public testing::Test {
public:
    SettingsStoreTest() { Reopen(); }

    void Reopen()
    {
        m_registry.reset();
        m_registry = m_hives.Open();
        EXPECT_EQ(m_hives.trouble, "");
    }

    SettingsStore Store() { return SettingsStore(*m_registry); }
    std::string Loaded() { return Shown(Store().Load()); }

    Registry Key()
    {
        Registry key(*m_registry);
        key.hKey = kCurrentUser;
        key.KeyRoot = "software\\MORVIK Technologies\\Zentrel\\Quillet";
        return key;
    }

    void Put(const char* name, const RegistryValue& value, std::uint32_t type)
    {
        EXPECT_TRUE(*Key().SetRegistryValue(name, value, type)) << name;
    }

    // Runs in another process, on the same hive.
    void Elsewhere(const std::function<void()>& act)
    {
        m_registry.reset();
        EXPECT_TRUE(EndsWell(StartChild([&] {
            Reopen();
            act();
            m_registry.reset();
        })));
        Reopen();
    }

private:
    HiveRig m_hives;
    std::unique_ptr<RegistryStore> m_registry;
};

TEST_F(SettingsStoreTest, AnEmptyRegistryGivesTheDefaults)
{
    Settings changed;
    changed.SaveView = false;
    Store().Save(changed);  // into a key that is not there
    for (const bool hasKey : {false, true}) {
        if (hasKey) Store().CreateKey();
        EXPECT_EQ(Key().KeyExists(), hasKey);
        EXPECT_EQ(Loaded(), kDefaults);
        EXPECT_EQ(Shown(Store().LoadPlacement()), "0: 300 300 12000 9000");
        EXPECT_EQ(Store().LoadRefreshInterval(5000), 5000);
        EXPECT_TRUE(Store().LoadView("ViewToolbar"));
    }
    EXPECT_EQ(RefreshItemOf(Store().LoadRefreshInterval(5000)), 1U);
}

TEST_F(SettingsStoreTest, EverySettingComesBackInAnotherProcess)
{
    Settings settings;
    for (auto* setting :
         {&settings.SaveWindowPos, &settings.SavePanels, &settings.SaveView, &settings.SaveAutoStats,
          &settings.RememberLastServer, &settings.StartConnectDialog}) {
        *setting = false;
        settings.RememberServers = (settings.RememberServers + 77) % 201;
        settings.StartRemoteReg = RemoteRegPolicy::Automatically;
        settings.LastServer = "wéb " + std::to_string(settings.RememberServers);
        settings.Servers.push_back(settings.LastServer);
        settings.Sites.Add(settings.RememberServers - 100);
        Store().CreateKey();
        Store().Save(settings);
        settings.Sites.Trim();
        Elsewhere([&] { EXPECT_EQ(Loaded(), Shown(settings)); });
        *setting = true;
    }
    const WindowPlacement placement{WindowState::Normal, -2'000'000, 2, 3, 2'000'000};
    Elsewhere([&] {
        Store().SavePlacement(placement, 1234);
        Store().SaveView("ViewTooltips", false);
    });
    EXPECT_EQ(Shown(Store().LoadPlacement()), Shown(placement));
    EXPECT_EQ(Store().LoadRefreshInterval(5000), 1234);
    EXPECT_FALSE(Store().LoadView("ViewTooltips"));
    EXPECT_TRUE(Store().LoadView("ViewStatusBar"));
}

TEST_F(SettingsStoreTest, ValuesAreWrittenInTheirOrderEachWithItsType)
{
    Settings settings;
    settings.LastServer = "b";
    settings.Servers = {"b", "a c"};
    settings.Sites.Add(-2);
    Store().CreateKey();
    Store().Save(settings);
    Store().SavePlacement({}, 5000);
    std::string written;
    for (const auto& [name, value] : Key().EnumRegistryValues(kCurrentUser, Key().KeyRoot)) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        written += name + '=' + (number ? std::to_string(*number) : std::get<std::string>(value)) + '\n';
    }
    EXPECT_EQ(written, "SaveWindowPos=1\nSavePanels=1\nSaveView=1\nSaveAutoStats=1\nRememberServers=10\n"
                       "RememberLastServer=1\nLastServer=b\nStartConnectDialog=1\nStartRemoteReg=2\n"
                       "Sites=FE FF FF FF\nServers=b,a c\nWindowState=0\nWindowTop=300\nWindowLeft=300\n"
                       "WindowHeight=9000\nWindowWidth=12000\nAutoRefreshStats=5000\n");
    EXPECT_EQ(Key().GetRegistryValue("Sites"), RegistryValue(Bytes{0xFE, 0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(Key().GetRegistryValue("Servers"), RegistryValue(settings.Servers));
}

TEST_F(SettingsStoreTest, WhatCannotBeUsedIsCorrectedWhenItIsLoaded)
{
    const auto longName = std::string(1025, 'x');
    const auto allowed = std::string(1024, 'y');
    const struct {
        const char* name;
        RegistryValue value;
        std::uint32_t type;
        std::string loaded;
    } cases[] = {
        {"RememberServers", 500, kRegDword, kDefaults},
        {"RememberServers", 200, kRegDword, "1111 200 1 '' 1 2 |0|"},
        {"StartRemoteReg", 7, kRegDword, kDefaults},
        {"SaveView", -5, kRegDword, kDefaults},
        {"LastServer", std::string("  MY HOST "), kRegSz, "1111 10 1 'MY HOST' 1 2 |0|"},
        {"LastServer", longName, kRegSz, kDefaults},
        {"Sites", Bytes{1, 2, 3}, kRegBinary, kDefaults},
        {"Sites", Bytes{1, 2, 0, 0, 9, 9}, kRegBinary, "1111 10 1 '' 1 2 |513|"},
        {"Sites", Bytes((1U << 20U) + 1, 1), kRegBinary, kDefaults},
        {"Servers", std::string("abcd"), kRegSz, kDefaults},
        {"Servers", Texts{"a", longName, allowed}, kRegMultiSz, kDefaults + std::string(" a ") + allowed},
    };
    for (const auto& one : cases) {
        Store().CreateKey();
        Put(one.name, one.value, one.type);
        EXPECT_EQ(Loaded(), one.loaded) << one.name;
        EXPECT_EQ(Key().DeleteValue(one.name), 0U);
    }
    // More names than are remembered stay for the user who wants more again, but not more than ever can be.
    Put("RememberServers", 3, kRegDword);
    Put("Servers", Texts(10'000, "server"), kRegMultiSz);
    EXPECT_EQ(Store().Load().Servers, Texts(200, "server"));
}

TEST_F(SettingsStoreTest, SitesKeepTheirSlotsFromRunToRun)
{
    Settings settings;
    for (const int site : {5, 7, 5, 0, 9}) settings.Sites.Add(site);
    EXPECT_EQ(settings.Sites.Slots().size(), 5U);
    for (const int site : {7, 0, 42}) settings.Sites.Remove(site);
    for (const int site : {7, 0}) EXPECT_FALSE(settings.Sites.Contains(site));
    Store().CreateKey();
    Store().Save(settings);
    EXPECT_EQ(Key().GetRegistryValue("Sites"), RegistryValue(Bytes{5, 0, 0, 0, 0, 0, 0, 0, 9, 0, 0, 0}));
    settings = Store().Load();
    settings.Sites.Add(11);
    EXPECT_EQ(Shown(settings), "1111 10 1 '' 1 2 |5|11|9|");
    settings.Sites = SiteSet();
    Store().Save(settings);
    EXPECT_EQ(Key().GetRegistryValue("Sites"), RegistryValue(Bytes(4, 0)));
}

TEST_F(SettingsStoreTest, OnlyANormalWindowChangesTheNormalPlacement)
{
    Store().CreateKey();
    Store().SavePlacement({WindowState::Normal, 1, 2, 3, 4}, 1000);
    int interval = 0;
    for (const auto& [state, stored] :
         {std::pair(WindowState::Minimized, "0: 1 2 3 4"), std::pair(WindowState::Maximized, "2: 1 2 3 4"),
          std::pair(WindowState::Minimized, "2: 1 2 3 4"), std::pair(WindowState::Normal, "0: 5 6 7 8")}) {
        Store().SavePlacement({state, 5, 6, 7, 8}, ++interval);
        EXPECT_EQ(Shown(Store().LoadPlacement()), stored);
        EXPECT_EQ(Store().LoadRefreshInterval(5000), interval);
    }
}

TEST_F(SettingsStoreTest, APlacementThatCannotBeUsedGivesWayToTheDefault)
{
    Store().CreateKey();
    for (const int state : {3, -1}) {
        Put("WindowState", state, kRegDword);
        Put("WindowWidth", state - 3, kRegDword);
        Put("WindowHeight", std::string("9"), kRegSz);
        Put("WindowLeft", Texts{"9"}, kRegMultiSz);
        Put("WindowTop", -7, kRegDword);
        EXPECT_EQ(Shown(Store().LoadPlacement()), "0: 300 -7 12000 9000");
    }
    Store().SaveRefreshInterval(-1);
    EXPECT_EQ(Store().LoadRefreshInterval(1000), 1000);
    Store().SaveRefreshInterval(0);
    EXPECT_EQ(RefreshItemOf(Store().LoadRefreshInterval(1000)), 4U);
    EXPECT_EQ(RefreshItemOf(1001), std::nullopt);
}

}  // namespace
