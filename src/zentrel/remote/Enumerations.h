#pragma once

#include "base/Result.h"
#include "zentrel/Session.h"

#include <array>
#include <cstdint>
#include <mutex>
#include <string_view>

namespace zentrel {

// Keeps a server's lists of names from having no end: names ascend, a page holds what was asked for, and
// one enumeration, page after page, at most Limit::Names. Enumerations are told apart by where they went on.
class Enumerations {
public:
    // Checks a page that follows `after` below `path`. InvalidData when it is made up.
    Done Check(std::string_view path, View view, std::string_view after, std::uint32_t most,
               const KeyPage& page);

private:
    struct Position {
        std::size_t place = 0;  // hash of the key, the view and the name that was reached
        std::uint32_t names = 0;
    };

    std::mutex m_mutex;
    std::array<Position, 1024> m_positions{};  // as many levels as a walk may stand in
    std::size_t m_next = 0;
};

}  // namespace zentrel
