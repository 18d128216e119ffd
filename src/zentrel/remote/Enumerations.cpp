#include "zentrel/remote/Enumerations.h"

#include "zentrel/KeyPath.h"
#include "zentrel/remote/Limits.h"

#include <algorithm>
#include <functional>

namespace zentrel {

namespace {

std::size_t Place(std::string_view path, View view, std::string_view name)
{
    constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U;
    const std::hash<std::string_view> hash;
    return (hash(path) * kSpread) ^ hash(name) ^ static_cast<std::size_t>(view);
}

bool Holds(const KeyPage& page, std::string_view after, std::uint32_t most)
{
    if (page.names.size() > most || (page.names.empty() && !page.isLast)) return false;
    for (const auto& name : page.names) {
        if (name.size() > kLongestName || name <= after) return false;
        after = name;
    }
    return true;
}

}  // namespace

Done Enumerations::Check(std::string_view path, View view, std::string_view after, std::uint32_t most,
                         const KeyPage& page)
{
    if (!Holds(page, after, most)) return Fail(Code::InvalidData, "ZentrelAdmin");
    if (page.isLast) return {};
    const std::scoped_lock lock(m_mutex);
    const auto place = Place(path, view, after);
    auto at = m_positions.end();
    if (!after.empty())
        at = std::find_if(m_positions.begin(), m_positions.end(),
                          [place](const Position& position) { return position.place == place; });
    auto names = static_cast<std::uint32_t>(page.names.size());
    if (at != m_positions.end())
        names += at->names;
    else
        at = m_positions.begin() + static_cast<std::ptrdiff_t>(m_next++ % m_positions.size());
    if (names > Limit::Names) return Fail(Code::InvalidData, "ZentrelAdmin");
    *at = {Place(path, view, page.names.back()), names};
    return {};
}

}  // namespace zentrel
