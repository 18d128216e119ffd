#pragma once

#include "base/Result.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace zentrel {

// Looks at the packed rows that a server sends before anybody keeps them: whole rows only, each below or
// beside the one before it, and in all no more than Limits.h accepts. A reader that keeps one key of each
// level, as SubtreeWindow does, so holds at most Limit::LevelBytes.
class RowCheck {
public:
    // The next batch of the stream. InvalidData when it does not hold together.
    Done Check(std::string_view packed);

private:
    std::vector<std::uint32_t> m_largest;  // by depth
    std::uint64_t m_levelBytes = 0;
    std::uint64_t m_rows = 0;
    std::uint64_t m_nameBytes = 0;
    std::uint64_t m_bytes = 0;
    std::uint32_t m_lastDepth = 0;
};

}  // namespace zentrel
