#pragma once

#include "zentrel/KeyPath.h"
#include "zentrel/LittleEndian.h"
#include "zentrel/Metabase.h"

// How keys lie in the store. For the metabase's own files only.
//   stored key:   parent id (8, big-endian, so that ids sort), then the name
//   stored value: id (8), number of children (4), then the packed properties; numbers little-endian
namespace zentrel {

inline constexpr KeyId kNoParent = ~KeyId{0};         // above the root
inline constexpr KeyId kTrashParent = ~KeyId{0} - 1;  // above what no path leads to any longer, see Trash.h

struct KeyBuffer {
    std::array<char, sizeof(KeyId) + kLongestName> bytes;
};

// The stored key of a child; a name that is too long is cut.
inline std::string_view ChildKey(KeyBuffer& buffer, KeyId parent, std::string_view name)
{
    const KeyId big = __builtin_bswap64(parent);
    std::memcpy(buffer.bytes.data(), &big, sizeof big);
    const auto length = std::min(name.size(), kLongestName);
    if (length != 0) std::memcpy(buffer.bytes.data() + sizeof big, name.data(), length);
    return {buffer.bytes.data(), sizeof big + length};
}

inline std::string ChildKey(KeyId parent, std::string_view name)
{
    KeyBuffer buffer;
    return std::string(ChildKey(buffer, parent, name));
}

inline void PackKeyRow(std::string& out, KeyId id, std::uint32_t childCount,
                       std::span<const std::byte> properties)
{
    out.resize(12);
    auto* to = reinterpret_cast<std::byte*>(out.data());
    StoreLittle(to, id);
    StoreLittle(to + 8, childCount);
    out.append(reinterpret_cast<const char*>(properties.data()), properties.size());
}

inline Result<std::optional<KeyRow>> UnpackKeyRow(std::string_view name, std::span<const std::byte> value)
{
    if (value.size() < 12) return Fail(Code::FileCorrupt, "Metabase");
    return KeyRow{LoadLittle<KeyId>(value.data()), LoadLittle<std::uint32_t>(value.data() + 8), name,
                  value.subspan(12)};
}

inline std::string_view KeyRowText(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The error for a status of the store's library.
tl::unexpected<SystemError> FailStore(int status);

}  // namespace zentrel
