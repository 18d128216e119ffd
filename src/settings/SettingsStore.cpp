#include "settings/SettingsStore.h"

#include "base/Text.h"
#include "settings/ServerList.h"
#include "settings/SettingsKey.h"
#include "zentrel/LittleEndian.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* kToolbar = "ToolbarStandard";
constexpr const char* kState = "WindowState";
constexpr const char* kLeft = "WindowLeft";
constexpr const char* kTop = "WindowTop";
constexpr const char* kWidth = "WindowWidth";
constexpr const char* kHeight = "WindowHeight";
constexpr const char* kRefresh = "AutoRefreshStats";

constexpr std::size_t kMostSiteBytes = std::size_t{1} << 20;
constexpr std::size_t kLongestServerName = 1024;  // bytes; no server's name comes near it

template <class Choice>
Choice ChoiceOf(std::int32_t number, Choice highest, Choice other)
{
    const bool isOne = number >= 0 && number <= static_cast<std::int32_t>(highest);
    return isOne ? static_cast<Choice>(number) : other;
}

std::string LoadLastServer(const SettingsKey& key)
{
    const std::string text = key.Text("LastServer");
    const auto name = TrimBlanks(text);
    return name.size() > kLongestServerName ? std::string() : std::string(name);
}

SiteSet LoadSites(const SettingsKey& key)
{
    const auto bytes = key.Bytes("Sites");
    if (bytes.size() > kMostSiteBytes) return SiteSet();
    const auto stored = std::as_bytes(std::span(bytes));
    std::vector<std::int32_t> slots(stored.size() / sizeof(std::int32_t));
    for (std::size_t i = 0; i < slots.size(); ++i)
        slots[i] = zentrel::LoadLittle<std::int32_t>(stored.data() + i * sizeof(std::int32_t));
    return SiteSet(std::move(slots));
}

void SaveSites(SettingsKey& key, SiteSet sites)
{
    sites.Trim();
    const auto slots = sites.Slots();
    std::vector<std::uint8_t> bytes(slots.size_bytes());
    auto* to = std::as_writable_bytes(std::span(bytes)).data();
    for (const auto slot : slots) {
        zentrel::StoreLittle(to, slot);
        to += sizeof slot;
    }
    key.SetBytes("Sites", std::move(bytes));
}

// As many as can ever be remembered, not as many as are at this moment: the user may want more again.
std::vector<std::string> LoadServers(const SettingsKey& key)
{
    auto servers = key.Texts("Servers");
    std::erase_if(servers, [](const std::string& name) { return name.size() > kLongestServerName; });
    if (servers.size() > kMostRememberServers) servers.resize(kMostRememberServers);
    return servers;
}

}  // namespace

void SettingsStore::CreateKey()
{
    SettingsKey::Create(m_registry);
}

Settings SettingsStore::Load() const
{
    const SettingsKey key(m_registry);
    Settings loaded;
    loaded.SaveWindowPos = key.Flag("SaveWindowPos", loaded.SaveWindowPos);
    loaded.SavePanels = key.Flag("SavePanels", loaded.SavePanels);
    loaded.SaveView = key.Flag("SaveView", loaded.SaveView);
    loaded.SaveAutoStats = key.Flag("SaveAutoStats", loaded.SaveAutoStats);
    const auto remembered = key.Number("RememberServers", loaded.RememberServers);
    if (IsRememberServers(remembered)) loaded.RememberServers = remembered;
    loaded.RememberLastServer = key.Flag("RememberLastServer", loaded.RememberLastServer);
    loaded.LastServer = LoadLastServer(key);
    loaded.StartConnectDialog = key.Flag("StartConnectDialog", loaded.StartConnectDialog);
    const auto policy = key.Number("StartRemoteReg", static_cast<std::int32_t>(loaded.StartRemoteReg));
    loaded.StartRemoteReg = ChoiceOf(policy, RemoteRegPolicy::Prompt, loaded.StartRemoteReg);
    loaded.Sites = LoadSites(key);
    loaded.Servers = LoadServers(key);
    return loaded;
}

void SettingsStore::Save(const Settings& settings)
{
    SettingsKey key(m_registry);
    key.SetFlag("SaveWindowPos", settings.SaveWindowPos);
    key.SetFlag("SavePanels", settings.SavePanels);
    key.SetFlag("SaveView", settings.SaveView);
    key.SetFlag("SaveAutoStats", settings.SaveAutoStats);
    key.SetNumber("RememberServers", settings.RememberServers);
    key.SetFlag("RememberLastServer", settings.RememberLastServer);
    key.SetText("LastServer", settings.LastServer);
    key.SetFlag("StartConnectDialog", settings.StartConnectDialog);
    key.SetNumber("StartRemoteReg", static_cast<std::int32_t>(settings.StartRemoteReg));
    SaveSites(key, settings.Sites);
    key.SetTexts("Servers", settings.Servers);
}

WindowPlacement SettingsStore::LoadPlacement() const
{
    const SettingsKey key(m_registry);
    const WindowPlacement usual;
    const auto size = [&key](const char* name, std::int32_t missing) {
        const auto stored = key.Number(name, missing);
        return stored > 0 ? stored : missing;
    };
    WindowPlacement loaded;
    const auto state = key.Number(kState, static_cast<std::int32_t>(usual.state));
    loaded.state = ChoiceOf(state, WindowState::Maximized, usual.state);
    loaded.left = key.Number(kLeft, usual.left);
    loaded.top = key.Number(kTop, usual.top);
    loaded.width = size(kWidth, usual.width);
    loaded.height = size(kHeight, usual.height);
    return loaded;
}

void SettingsStore::SavePlacement(const WindowPlacement& placement, std::int32_t refreshInterval)
{
    SettingsKey key(m_registry);
    if (placement.state != WindowState::Minimized)
        key.SetNumber(kState, static_cast<std::int32_t>(placement.state));
    if (placement.state == WindowState::Normal) {
        key.SetNumber(kTop, placement.top);
        key.SetNumber(kLeft, placement.left);
        key.SetNumber(kHeight, placement.height);
        key.SetNumber(kWidth, placement.width);
    }
    SaveRefreshInterval(refreshInterval);
}

std::int32_t SettingsStore::LoadRefreshInterval(std::int32_t current) const
{
    const auto stored = SettingsKey(m_registry).Number(kRefresh, current);
    return stored < 0 ? current : stored;
}

void SettingsStore::SaveRefreshInterval(std::int32_t interval)
{
    SettingsKey(m_registry).SetNumber(kRefresh, interval);
}

void SettingsStore::SavePanels(std::span<const std::byte, 8> places)
{
    std::vector<std::uint8_t> bytes;
    for (const auto place : places) bytes.push_back(std::to_integer<std::uint8_t>(place));
    SettingsKey(m_registry).SetBytes("Panels", std::move(bytes));
}

std::vector<std::uint8_t> SettingsStore::LoadToolbar() const
{
    return SettingsKey(m_registry).Bytes(kToolbar);
}

void SettingsStore::SaveToolbar(std::vector<std::uint8_t> layout)
{
    SettingsKey(m_registry).SetBytes(kToolbar, std::move(layout));
}

bool SettingsStore::LoadView(std::string_view setting) const
{
    return SettingsKey(m_registry).Flag(setting, true);
}

void SettingsStore::SaveView(std::string_view setting, bool isShown)
{
    SettingsKey(m_registry).SetFlag(setting, isShown);
}
