#pragma once

#include "base/Result.h"
#include "platform/RegistryStore.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

// A value as the program sees it: nothing, a text, a number, bytes or a list of texts.
using RegistryValue = std::variant<std::monostate, std::string, std::int32_t, std::vector<std::uint8_t>,
                                   std::vector<std::string>>;

// The program's only way to the registry: reads and writes the values of one key, KeyRoot\SubKey below hKey.
// Every operation opens and closes the key itself, so nothing is cached and no handle outlives a call.
// No failure of the registry is an error: reads fall back to the default, writes answer false, listings
// answer what they got so far. Used on the window's thread only; the store must outlive the object.
class Registry {
public:
    explicit Registry(RegistryStore& store) : m_store(store) {}

    RegistryKey hKey = 0;  // the root: kCurrentUser or kLocalMachine
    std::string KeyRoot;   // path below the root
    std::string SubKey;    // path below KeyRoot, or empty

    bool KeyExists() const;
    // Creates (or opens) KeyRoot\subKey, or KeyRoot\SubKey when left out, with the keys in between.
    bool CreateKey(std::optional<std::string_view> subKey = std::nullopt);
    std::uint32_t DeleteKey(std::string_view name);         // of KeyRoot\name; answers the system's code
    std::uint32_t DeleteValue(std::string_view valueName);  // answers the system's code

    // Names of the subkeys of a key of any root (of the root itself when keyName is empty).
    std::vector<std::string> EnumRegistryKeys(RegistryKey root, std::string_view keyName) const;
    // (name, value) in the registry's order. Bytes come as "0A FF", a list as its texts joined by commas,
    // expandable texts expanded.
    std::vector<std::pair<std::string, RegistryValue>> EnumRegistryValues(RegistryKey root,
                                                                          std::string_view keyName) const;

    // The value by its stored type; the default, of whatever kind, when it cannot be read.
    RegistryValue GetRegistryValue(std::string_view valueName, RegistryValue defaultValue = {}) const;
    // Writes into the existing key, which is not made here. False when the key is missing or the write
    // fails, and for types other than the five.
    // The one error, of code 5 (invalid procedure call): type kRegMultiSz with a value that is no list, in a
    // key that exists.
    Result<bool> SetRegistryValue(std::string_view valueName, const RegistryValue& value, std::uint32_t type);

    static std::string TrimNull(std::string& text);  // cuts at the first zero character
    static Result<std::string> MakeMultiString(const RegistryValue& list);  // code 5 when it is no list
    static std::vector<std::string> GetMultiString(std::span<const std::uint8_t> bytes);

private:
    RegistryStore& m_store;
};
