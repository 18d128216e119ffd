#pragma once

#include "zentrel/SubtreeStream.h"

#include <memory>
#include <string>
#include <vector>

namespace zentrel {

// Read-ahead for a walk from the top down: holds the key that the walk stands on, the keys above it and the
// one key that comes next, and answers reads of just these. Everything else is for the server to answer.
// Memory is bounded by a batch and the properties of one path, whatever the subtree's size. When the stream
// fails or does not hold together, every key is unknown from then on.
class SubtreeWindow {
public:
    // `top` is the path of the stream's first key.
    SubtreeWindow(std::unique_ptr<SubtreeStream> stream, std::string_view top);

    // What the window knows of a key; null when the key is not in it.
    struct Key {
        std::uint32_t depth = 0;
        std::uint32_t childCount = 0;
        std::span<const std::byte> properties;
        std::uint64_t visit = 0;  // tells this stay of the walk at the key from any other; 0 = not there yet
    };
    std::optional<Key> Find(std::string_view path);

    // The name of the first child of the key that the walk stands on; empty when it is not known.
    std::optional<std::string_view> FirstChild(std::uint32_t depth, std::uint64_t visit);

    // Moves on to the next child of the key at `depth` and answers its name. NotHere: the walk has left the
    // key since Find told of this visit, or the stream broke.
    enum class Step { Moved, AtEnd, NotHere };
    Step NextChild(std::uint32_t depth, std::uint64_t visit, std::string& name);

private:
    struct Level {
        std::size_t pathEnd = 0;
        std::uint64_t visit = 0;
        std::uint32_t childCount = 0;
        std::string properties;
    };

    std::optional<SubtreeRow> Peek();
    void Take();
    std::nullopt_t Break();
    bool Fits(const SubtreeRow& row) const;
    void Enter(const SubtreeRow& row, std::size_t parentEnd);
    const Level* FindLevel(std::string_view path) const;

    std::unique_ptr<SubtreeStream> m_stream;
    RowBatch m_batch;
    std::string m_path;           // of the key that the walk stands on
    std::vector<Level> m_levels;  // the first m_depth of them are in use; the rest keep their memory
    std::size_t m_depth = 0;
    std::uint64_t m_visits = 0;
    std::uint32_t m_lastDepth = 0;  // of the row taken last
    std::uint32_t m_lastChildCount = 0;
    bool m_isAtEnd = false;
    bool m_isBroken = false;
};

}  // namespace zentrel
