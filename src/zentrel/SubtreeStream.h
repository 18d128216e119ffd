#pragma once

#include "base/Result.h"
#include "zentrel/Property.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zentrel {

// One key on its way to a reader that walks a whole subtree.
struct SubtreeRow {
    std::uint32_t depth = 0;                // 0 = the key that the walk began at
    std::uint32_t childCount = 0;           // child keys in the cache's view
    std::string_view name;                  // last segment of the path
    std::span<const std::byte> properties;  // packed, see Property.h
};

// Rows packed one behind the other: what a transport sends in one message. The rows lie in walk order: a
// key, then its children in order, each with its own subtree.
class RowBatch {
public:
    void Clear();
    void Add(const SubtreeRow& row);
    std::size_t Bytes() const { return m_bytes.size(); }

    // The bytes as they travel, and a batch made of bytes that came from afar (checked by Take).
    const std::string& Packed() const { return m_bytes; }
    void Assign(std::string packed);

    // Takes the next row; empty at the end or at broken bytes. Views last until Clear.
    std::optional<SubtreeRow> Take();
    std::optional<SubtreeRow> Peek() const;

private:
    std::string m_bytes;
    std::size_t m_at = 0;
};

// A walk over the cache below one key, pulled in bounded batches. Destroying it ends the walk.
class SubtreeStream {
public:
    virtual ~SubtreeStream() = default;

    // Fills the batch with the next rows; an empty batch is the end. After an error the walk is over.
    virtual Done Next(RowBatch& batch) = 0;
};

}  // namespace zentrel
