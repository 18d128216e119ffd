#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

using PropertyId = std::uint32_t;
using Bytes = std::vector<std::byte>;

namespace Prop {
inline constexpr PropertyId KeyType = 1002;          // text: see the types below
inline constexpr PropertyId ServerComment = 1015;    // text: the site's name for people
inline constexpr PropertyId ServerState = 1016;      // number: 2 = started, 4 = stopped
inline constexpr PropertyId ServerBindings = 1023;   // text list: "address:port:host"
inline constexpr PropertyId VirtualRoot = 3001;      // text: the folder that a key's URLs are read from
inline constexpr PropertyId SiteEncoding = 528401;   // number: 1 = gzip, 2 = deflate
inline constexpr PropertyId SiteLevel = 528402;      // number: compression level 1 to 9
inline constexpr PropertyId CacheId = 528403;        // number: the entry's cache id; makes a key an entry
inline constexpr PropertyId GzipRecord = 528404;     // bytes: cache record of the gzip file
inline constexpr PropertyId DeflateRecord = 528405;  // bytes: cache record of the deflate file
inline constexpr PropertyId Statistics = 528410;     // bytes: statistics record
}  // namespace Prop

inline constexpr std::string_view kVirtualDirType = "IIsWebVirtualDir";
inline constexpr std::string_view kFolderType = "IIsWebDirectory";
inline constexpr std::string_view kWebServerType = "IIsWebServer";

enum class PropertyType : std::uint8_t { Number = 1, Text = 2, Binary = 3, TextList = 5 };

// A property where it lies in somebody else's buffer.
struct PropertyView {
    PropertyId id = 0;
    PropertyType type = PropertyType::Binary;
    std::span<const std::byte> bytes;
};

// The value of one property, owned. Reading it as another type than it has gives 0, an empty text or no
// bytes: what a server sends is never trusted to have the right type.
// Short values, such as records of 56 and 48 bytes, need no memory of their own.
class Record {
public:
    explicit Record(const PropertyView& view);

    PropertyType Type() const { return m_type; }
    std::uint32_t Number() const;
    std::string_view Text() const;
    std::span<const std::byte> Value() const;  // the bytes, whatever the type
    std::vector<std::string> TextList() const;

private:
    static constexpr std::size_t kInline = 64;

    PropertyType m_type;
    std::uint32_t m_size;
    std::array<std::byte, kInline> m_inline;
    Bytes m_long;
};

// All properties of one key packed into one run of bytes, in ascending order of id:
// id (4), type (1), three zero bytes, size (4), then the bytes; numbers little-endian.
// Every reader below accepts any bytes and stops at the first thing that does not fit.
std::optional<PropertyView> FindProperty(std::span<const std::byte> packed, PropertyId id);

// Calls `take` for each property in the order stored.
template <class Take>
void ForEachProperty(std::span<const std::byte> packed, Take&& take);

// A set of properties that can be changed and packed.
class PropertySet {
public:
    PropertySet() = default;
    explicit PropertySet(std::span<const std::byte> packed) : m_packed(packed.begin(), packed.end()) {}

    void SetNumber(PropertyId id, std::uint32_t value);
    void SetText(PropertyId id, std::string_view text);
    void SetTextList(PropertyId id, const std::vector<std::string>& texts);
    void SetBytes(PropertyId id, std::span<const std::byte> bytes);
    void Set(const PropertyView& property);
    bool Remove(PropertyId id);  // false when there was none

    std::optional<PropertyView> Find(PropertyId id) const { return FindProperty(m_packed, id); }
    bool Has(PropertyId id) const { return Find(id).has_value(); }
    std::span<const std::byte> Packed() const { return m_packed; }

private:
    Bytes m_packed;
};

// Reads the property at the front of `packed` and moves past it; empty at the end or at broken bytes.
std::optional<PropertyView> TakeProperty(std::span<const std::byte>& packed);

template <class Take>
void ForEachProperty(std::span<const std::byte> packed, Take&& take)
{
    while (const auto property = TakeProperty(packed)) take(*property);
}

}  // namespace zentrel
