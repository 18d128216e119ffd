#pragma once

#include "settings/Registry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The settings key with typed values: a value of another type reads as if it were missing.
class SettingsKey {
public:
    explicit SettingsKey(RegistryStore& store);

    static void Create(RegistryStore& store);  // with the keys above it; does nothing to one that exists

    std::int32_t Number(std::string_view name, std::int32_t missing) const;
    bool Flag(std::string_view name, bool missing) const { return Number(name, missing ? 1 : 0) != 0; }
    std::string Text(std::string_view name) const;  // empty when missing
    std::vector<std::uint8_t> Bytes(std::string_view name) const;
    std::vector<std::string> Texts(std::string_view name) const;

    // Each tries to write and leaves the earlier value when it cannot.
    void SetNumber(std::string_view name, std::int32_t number);
    void SetFlag(std::string_view name, bool flag) { SetNumber(name, flag ? 1 : 0); }
    void SetText(std::string_view name, const std::string& text);
    void SetBytes(std::string_view name, std::vector<std::uint8_t> bytes);
    void SetTexts(std::string_view name, std::vector<std::string> texts);

private:
    template <class Kind>
    Kind Read(std::string_view name, Kind missing) const;
    void Write(std::string_view name, const RegistryValue& value, std::uint32_t type);

    Registry m_key;
};
