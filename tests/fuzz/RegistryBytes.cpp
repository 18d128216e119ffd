#include "settings/Registry.h"

#include "fuzz/Targets.h"

#include <memory>
#include <string>

namespace fuzz {
namespace {

constexpr std::string_view kName = "v";

// In memory, since nothing can be made at no path.
RegistryStore& Store()
{
    static std::string trouble;
    static const auto store = RegistryStore::Open({}, {}, trouble);
    return *store;
}

void RequireTexts(std::span<const std::uint8_t> bytes)
{
    const auto texts = Registry::GetMultiString(bytes);
    std::size_t length = 0;
    for (const auto& text : texts) {
        Require(text.find('\0') == std::string::npos, "a text ends at the first zero");
        length += text.size() + 1;
    }
    Require(length <= bytes.size() + 1, "texts lie within their value");
    const auto joined = Registry::MakeMultiString(texts);
    Require(joined.has_value(), "texts can be joined");
    const auto* data = reinterpret_cast<const std::uint8_t*>(joined->data());
    Require(Registry::GetMultiString({data, joined->size()}) == texts,
            "joined texts come apart as they were");
}

}  // namespace

void RegistryBytes(Input bytes)
{
    if (bytes.empty()) return;
    const auto type = std::to_integer<std::uint32_t>(bytes[0]);
    const std::span value(reinterpret_cast<const std::uint8_t*>(bytes.data()) + 1, bytes.size() - 1);
    RequireTexts(value);
    auto& store = Store();
    Require(store.SetValue(kCurrentUser, kName, type, value) == 0, "any bytes of any type can be stored");

    Registry registry(store);
    registry.hKey = kCurrentUser;
    const auto read = registry.GetRegistryValue(kName);
    const auto listed = registry.EnumRegistryValues(kCurrentUser, "");
    Require(listed.size() == 1 && listed[0].first == kName, "the value is listed once");

    if (read == RegistryValue() || type == kRegExpandSz) return;
    Require(registry.SetRegistryValue(kName, read, type) == true, "what was read can be written");
    Require(registry.GetRegistryValue(kName) == read, "what was written is read");
}

}  // namespace fuzz
