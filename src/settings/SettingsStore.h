#pragma once

#include "platform/RegistryStore.h"
#include "settings/Settings.h"
#include "settings/WindowPlacement.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// Where the program keeps its settings: one key of the current user. Reading never fails: what is missing,
// of a wrong type, of an absurd size or out of its range is loaded as its default. A value that cannot be
// written keeps what it held, and nobody is told. Each write is on the disk when its call returns.
class SettingsStore {
public:
    explicit SettingsStore(RegistryStore& registry) : m_registry(registry) {}  // which must outlive this

    void CreateKey();  // once at start-up, before anything else

    Settings Load() const;
    void Save(const Settings& settings);  // its site set without free slots at the end

    // The normal rectangle as it is stored, on a screen or not; a size of 0 or less is the default's.
    WindowPlacement LoadPlacement() const;
    // A minimized window leaves the stored placement as it is, a maximized one changes the state only. The
    // interval is saved along in every case.
    void SavePlacement(const WindowPlacement& placement, std::int32_t refreshInterval);

    // Milliseconds, 0 for no refresh; the current interval when none is stored.
    std::int32_t LoadRefreshInterval(std::int32_t current) const;
    void SaveRefreshInterval(std::int32_t interval);

    void SavePanels(std::span<const std::byte, 8> places);  // nothing reads it back

    // The arrangement of the toolbar's buttons, in the toolbar's own format; empty when none is stored.
    std::vector<std::uint8_t> LoadToolbar() const;
    void SaveToolbar(std::vector<std::uint8_t> layout);

    // Is a part of the window shown? By the name of its setting, for example "ViewToolbar".
    bool LoadView(std::string_view setting) const;
    void SaveView(std::string_view setting, bool isShown);

private:
    RegistryStore& m_registry;
};
