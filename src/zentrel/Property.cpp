#include "zentrel/Property.h"

#include "zentrel/LittleEndian.h"

#include <algorithm>
#include <cstring>

namespace zentrel {

namespace {

constexpr std::size_t kHeader = 12;
constexpr std::size_t kLargestValue = 16U << 20U;

std::span<const std::byte> AsBytes(std::string_view text)
{
    return std::as_bytes(std::span(text.data(), text.size()));
}

std::string_view AsText(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

Record::Record(const PropertyView& view)
    : m_type(view.type),
      m_size(static_cast<std::uint32_t>(view.bytes.size()))
{
    if (m_size > kInline)
        m_long.assign(view.bytes.begin(), view.bytes.end());
    else if (m_size != 0)
        std::memcpy(m_inline.data(), view.bytes.data(), m_size);
}

std::span<const std::byte> Record::Value() const
{
    return m_size > kInline ? std::span<const std::byte>(m_long) : std::span(m_inline.data(), m_size);
}

std::uint32_t Record::Number() const
{
    return m_type == PropertyType::Number && m_size == 4 ? LoadLittle<std::uint32_t>(Value().data()) : 0;
}

std::string_view Record::Text() const
{
    return m_type == PropertyType::Text ? AsText(Value()) : std::string_view{};
}

std::vector<std::string> Record::TextList() const
{
    std::vector<std::string> texts;
    if (m_type != PropertyType::TextList) return texts;
    auto rest = AsText(Value());
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\0'), rest.size());
        texts.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return texts;
}

std::optional<PropertyView> TakeProperty(std::span<const std::byte>& packed)
{
    if (packed.size() < kHeader) return std::nullopt;
    const auto size = LoadLittle<std::uint32_t>(packed.data() + 8);
    if (size > packed.size() - kHeader) return std::nullopt;
    PropertyView view;
    view.id = LoadLittle<std::uint32_t>(packed.data());
    view.type = static_cast<PropertyType>(packed[4]);
    view.bytes = packed.subspan(kHeader, size);
    packed = packed.subspan(kHeader + size);
    return view;
}

std::optional<PropertyView> FindProperty(std::span<const std::byte> packed, PropertyId id)
{
    while (const auto property = TakeProperty(packed))
        if (property->id == id) return property;
    return std::nullopt;
}

void PropertySet::Set(const PropertyView& property)
{
    if (property.bytes.size() > kLargestValue) return;
    const Bytes value(property.bytes.begin(), property.bytes.end());  // it may lie in m_packed
    Remove(property.id);

    std::span<const std::byte> rest = m_packed;
    auto at = m_packed.size() - rest.size();
    for (auto next = TakeProperty(rest); next && next->id < property.id; next = TakeProperty(rest))
        at = m_packed.size() - rest.size();

    std::array<std::byte, kHeader> header{};
    StoreLittle(header.data(), property.id);
    header[4] = static_cast<std::byte>(property.type);
    StoreLittle(header.data() + 8, static_cast<std::uint32_t>(value.size()));
    const auto place = m_packed.begin() + static_cast<std::ptrdiff_t>(at);
    const auto behind = m_packed.insert(place, header.begin(), header.end()) + kHeader;
    m_packed.insert(behind, value.begin(), value.end());
}

bool PropertySet::Remove(PropertyId id)
{
    std::span<const std::byte> rest = m_packed;
    auto at = std::size_t{0};
    while (const auto property = TakeProperty(rest)) {
        const auto end = m_packed.size() - rest.size();
        if (property->id == id) {
            m_packed.erase(m_packed.begin() + static_cast<std::ptrdiff_t>(at),
                           m_packed.begin() + static_cast<std::ptrdiff_t>(end));
            return true;
        }
        at = end;
    }
    return false;
}

void PropertySet::SetNumber(PropertyId id, std::uint32_t value)
{
    std::array<std::byte, 4> bytes{};
    StoreLittle(bytes.data(), value);
    Set({id, PropertyType::Number, bytes});
}

void PropertySet::SetText(PropertyId id, std::string_view text)
{
    Set({id, PropertyType::Text, AsBytes(text)});
}

void PropertySet::SetTextList(PropertyId id, const std::vector<std::string>& texts)
{
    std::string joined;
    for (const auto& text : texts) joined.append(text).push_back('\0');
    Set({id, PropertyType::TextList, AsBytes(joined)});
}

void PropertySet::SetBytes(PropertyId id, std::span<const std::byte> bytes)
{
    Set({id, PropertyType::Binary, bytes});
}

}  // namespace zentrel
