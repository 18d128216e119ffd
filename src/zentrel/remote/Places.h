#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace zentrel {

// Places that clients take for as long as they need them: so many in all, and so many for each of them, so
// that one cannot have them all.
class Places {
public:
    using Place = std::shared_ptr<void>;  // given back when it goes; none was free when it is empty

    Place Take(const std::string& who, std::size_t most, std::size_t mostForOne)
    {
        const std::lock_guard guard(m_mutex);
        const auto found = m_taken.find(who);
        const auto hasTaken = found == m_taken.end() ? 0 : found->second;
        if (m_all >= most || hasTaken >= mostForOne) return nullptr;
        ++m_all;
        ++m_taken[who];
        return {this, [who](Places* places) { places->GiveBack(who); }};
    }

private:
    void GiveBack(const std::string& who)
    {
        const std::lock_guard guard(m_mutex);
        --m_all;
        if (const auto taken = m_taken.find(who); --taken->second == 0) m_taken.erase(taken);
    }

    std::mutex m_mutex;
    std::size_t m_all = 0;
    std::map<std::string, std::size_t> m_taken;
};

}  // namespace zentrel
