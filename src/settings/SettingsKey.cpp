#include "settings/SettingsKey.h"

#include <utility>

namespace {

constexpr const char* kSoftware = "SOFTWARE";
constexpr const char* kProgram = "Morvik Technologies\\Zentrel\\Quillet";  // below it

}  // namespace

SettingsKey::SettingsKey(RegistryStore& store) : m_key(store)
{
    m_key.hKey = kCurrentUser;
    m_key.KeyRoot = std::string(kSoftware) + "\\" + kProgram;
}

void SettingsKey::Create(RegistryStore& store)
{
    Registry software(store);
    software.hKey = kCurrentUser;
    software.KeyRoot = kSoftware;
    software.CreateKey(kProgram);
}

template <class Kind>
Kind SettingsKey::Read(std::string_view name, Kind missing) const
{
    auto value = m_key.GetRegistryValue(name);
    auto* const found = std::get_if<Kind>(&value);
    return found == nullptr ? std::move(missing) : std::move(*found);
}

std::int32_t SettingsKey::Number(std::string_view name, std::int32_t missing) const
{
    return Read(name, missing);
}

std::string SettingsKey::Text(std::string_view name) const
{
    return Read(name, std::string());
}

std::vector<std::uint8_t> SettingsKey::Bytes(std::string_view name) const
{
    return Read(name, std::vector<std::uint8_t>());
}

std::vector<std::string> SettingsKey::Texts(std::string_view name) const
{
    return Read(name, std::vector<std::string>());
}

void SettingsKey::Write(std::string_view name, const RegistryValue& value, std::uint32_t type)
{
    static_cast<void>(m_key.SetRegistryValue(name, value, type));
}

void SettingsKey::SetNumber(std::string_view name, std::int32_t number)
{
    Write(name, number, kRegDword);
}

void SettingsKey::SetText(std::string_view name, const std::string& text)
{
    Write(name, text, kRegSz);
}

void SettingsKey::SetBytes(std::string_view name, std::vector<std::uint8_t> bytes)
{
    Write(name, std::move(bytes), kRegBinary);
}

void SettingsKey::SetTexts(std::string_view name, std::vector<std::string> texts)
{
    Write(name, std::move(texts), kRegMultiSz);
}
