#include "settings/Registry.h"

#include "base/ParseInteger.h"
#include "platform/EnvironmentText.h"

#include <algorithm>
#include <array>
#include <bit>

namespace {

constexpr std::size_t kNameBuffer = 260;    // characters
constexpr std::size_t kValueBuffer = 1024;  // bytes; grows for larger values
constexpr std::size_t kEnumBuffer = 4096;

using Bytes = std::span<const std::uint8_t>;

// A key that is open while this lives.
class OpenedKey {
public:
    OpenedKey(RegistryStore& store, const RegistryOpened& opened) : m_store(store), m_opened(opened) {}
    ~OpenedKey()
    {
        if (m_opened.code == 0) m_store.CloseKey(m_opened.key);
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    std::uint32_t Status() const { return m_opened.code; }
    RegistryKey Get() const { return m_opened.key; }

private:
    RegistryStore& m_store;
    const RegistryOpened m_opened;
};

std::string TextOf(Bytes bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes BytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string JoinPath(std::string_view root, std::string_view subKey)
{
    return (std::string(root) += '\\') += subKey;
}

// Reads with a buffer that grows until the value fits; what does not fit then, an overlong name, stays 234.
template <class Read>
RegistryRead ReadWhole(std::vector<std::uint8_t>& buffer, const Read& read)
{
    for (;;) {
        auto answer = read();
        if (answer.code != Code::MoreData || answer.size <= buffer.size()) return answer;
        buffer.resize(answer.size);
    }
}

// Nothing when four bytes are not there.
RegistryValue NumberOf(Bytes bytes)
{
    if (bytes.size() < 4) return {};
    const std::uint32_t number = bytes[0] | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U |
                                 std::uint32_t{bytes[3]} << 24U;
    return std::bit_cast<std::int32_t>(number);
}

std::string HexOf(Bytes bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const auto byte : bytes) {
        if (!text.empty()) text += ' ';
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0xFU];
    }
    return text;
}

std::string ListedText(Bytes bytes)
{
    return bytes.empty() ? std::string() : TextOf(bytes.first(bytes.size() - 1));
}

RegistryValue ListedValue(std::uint32_t type, Bytes bytes)
{
    switch (type) {
    case kRegSz: return ListedText(bytes);
    case kRegExpandSz: {
        std::string text = ExpandEnvironmentText(ListedText(bytes));
        return Registry::TrimNull(text);
    }
    case kRegBinary: return HexOf(bytes);
    case kRegDword: return NumberOf(bytes);
    case kRegMultiSz: {
        std::string text = TextOf(bytes.first(bytes.size() - std::min<std::size_t>(bytes.size(), 2)));
        std::replace(text.begin(), text.end(), '\0', ',');
        return text;
    }
    default: return {};
    }
}

// Nothing for a type or bytes that give no value.
RegistryValue StoredValue(std::uint32_t type, Bytes bytes)
{
    const bool isText = type == kRegSz || type == kRegExpandSz || type == kRegMultiSz;
    if (isText && bytes.empty()) return {};
    switch (type) {
    case kRegSz: return ListedText(bytes);
    case kRegExpandSz: return ExpandEnvironmentText(ListedText(bytes));
    case kRegBinary: return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
    case kRegDword: return NumberOf(bytes);
    case kRegMultiSz: return Registry::GetMultiString(bytes);
    default: return {};
    }
}

std::optional<std::string> AsText(const RegistryValue& value)
{
    if (std::holds_alternative<std::monostate>(value)) return "";
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return std::nullopt;
}

std::optional<std::int32_t> AsNumber(const RegistryValue& value)
{
    if (std::holds_alternative<std::monostate>(value)) return 0;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    if (const auto* text = std::get_if<std::string>(&value)) return ParseInteger(*text);
    return std::nullopt;
}

// The bytes to store; nothing when the value cannot become one of the type.
Result<std::optional<std::string>> Encode(const RegistryValue& value, std::uint32_t type)
{
    std::optional<std::string> encoded;
    if (type == kRegSz || type == kRegExpandSz) {
        encoded = AsText(value);
        if (encoded) *encoded += '\0';
    } else if (type == kRegBinary) {
        if (const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value)) encoded = TextOf(*bytes);
    } else if (type == kRegDword) {
        if (const auto number = AsNumber(value)) {
            const auto bits = std::bit_cast<std::uint32_t>(*number);
            encoded.emplace();
            for (unsigned shift = 0; shift < 32; shift += 8)
                *encoded += static_cast<char>(bits >> shift & 0xFFU);
        }
    } else if (type == kRegMultiSz) {
        auto joined = Registry::MakeMultiString(value);
        if (!joined) return Fail(joined.error());
        encoded = std::move(*joined);
    }
    return encoded;
}

}  // namespace

bool Registry::KeyExists() const
{
    return OpenedKey(m_store, m_store.OpenKey(hKey, JoinPath(KeyRoot, SubKey), kKeyRead)).Status() == 0;
}

bool Registry::CreateKey(std::optional<std::string_view> subKey)
{
    const auto path = JoinPath(KeyRoot, subKey.value_or(SubKey));
    return OpenedKey(m_store, m_store.CreateKey(hKey, path, kKeyAllAccess)).Status() == 0;
}

std::uint32_t Registry::DeleteKey(std::string_view name)
{
    return m_store.DeleteKey(hKey, JoinPath(KeyRoot, name));
}

std::uint32_t Registry::DeleteValue(std::string_view valueName)
{
    const OpenedKey key(m_store, m_store.OpenKey(hKey, JoinPath(KeyRoot, SubKey), kKeyAllAccess));
    return key.Status() != 0 ? key.Status() : m_store.DeleteValue(key.Get(), valueName);
}

std::vector<std::string> Registry::EnumRegistryKeys(RegistryKey root, std::string_view keyName) const
{
    std::vector<std::string> names;
    const OpenedKey key(m_store, m_store.OpenKey(root, keyName, kKeyRead));
    for (std::uint32_t index = 0; key.Status() == 0; ++index) {
        auto found = m_store.EnumKey(key.Get(), index, kNameBuffer);
        if (found.code != 0) break;
        names.push_back(std::move(found.name));
    }
    return names;
}

std::vector<std::pair<std::string, RegistryValue>>
Registry::EnumRegistryValues(RegistryKey root, std::string_view keyName) const
{
    std::vector<std::pair<std::string, RegistryValue>> values;
    const OpenedKey key(m_store, m_store.OpenKey(root, keyName, kKeyRead));
    std::vector<std::uint8_t> buffer(kEnumBuffer);
    for (std::uint32_t index = 0; key.Status() == 0; ++index) {
        auto read =
            ReadWhole(buffer, [&] { return m_store.EnumValue(key.Get(), index, kNameBuffer, buffer); });
        if (read.code != 0) break;
        values.emplace_back(std::move(read.name), ListedValue(read.type, Bytes(buffer).first(read.size)));
    }
    return values;
}

RegistryValue Registry::GetRegistryValue(std::string_view valueName, RegistryValue defaultValue) const
{
    const OpenedKey key(m_store, m_store.OpenKey(hKey, JoinPath(KeyRoot, SubKey), kKeyRead));
    if (key.Status() != 0) return defaultValue;
    std::vector<std::uint8_t> buffer(kValueBuffer);
    const auto read = ReadWhole(buffer, [&] { return m_store.QueryValue(key.Get(), valueName, buffer); });
    if (read.code != 0) return defaultValue;
    auto value = StoredValue(read.type, Bytes(buffer).first(read.size));
    return std::holds_alternative<std::monostate>(value) ? defaultValue : value;
}

Result<bool> Registry::SetRegistryValue(std::string_view valueName, const RegistryValue& value,
                                        std::uint32_t type)
{
    const OpenedKey key(m_store, m_store.OpenKey(hKey, JoinPath(KeyRoot, SubKey), kKeyWrite));
    if (key.Status() != 0) return false;
    const auto encoded = Encode(value, type);
    if (!encoded) return Fail(encoded.error());
    return *encoded && m_store.SetValue(key.Get(), valueName, type, BytesOf(**encoded)) == 0;
}

std::string Registry::TrimNull(std::string& text)
{
    text.erase(std::min(text.find('\0'), text.size()));
    return text;
}

Result<std::string> Registry::MakeMultiString(const RegistryValue& list)
{
    const auto* texts = std::get_if<std::vector<std::string>>(&list);
    if (texts == nullptr) return Fail(5, "Registry", "Invalid procedure call or argument");
    std::string joined;
    for (const auto& text : *texts) (joined += text) += '\0';
    return joined += '\0';
}

std::vector<std::string> Registry::GetMultiString(std::span<const std::uint8_t> bytes)
{
    std::vector<std::string> texts;
    // The last byte is the end's own, whatever it is, unless a text runs into it.
    for (std::size_t i = 0; i + 1 < bytes.size();) {
        const auto rest = bytes.subspan(i);
        const auto length = static_cast<std::size_t>(std::find(rest.begin(), rest.end(), 0) - rest.begin());
        texts.push_back(TextOf(rest.first(length)));
        i += length + 1;
    }
    return texts;
}
