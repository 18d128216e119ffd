#include "settings/SiteSet.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kGrowth = 4;

}  // namespace

SiteSet::SiteSet(std::vector<std::int32_t> slots) : m_slots(std::move(slots))
{
    if (m_slots.empty()) m_slots.push_back(0);
}

bool SiteSet::Contains(std::int32_t site) const
{
    return site != 0 && std::find(m_slots.begin(), m_slots.end(), site) != m_slots.end();
}

void SiteSet::Add(std::int32_t site)
{
    if (site == 0 || Contains(site)) return;
    auto free = std::find(m_slots.begin(), m_slots.end(), 0);
    if (free == m_slots.end()) {
        const auto before = static_cast<std::ptrdiff_t>(m_slots.size());
        m_slots.resize(m_slots.size() + kGrowth, 0);
        free = m_slots.begin() + before;
    }
    *free = site;
}

void SiteSet::Remove(std::int32_t site)
{
    const auto found = std::find(m_slots.begin(), m_slots.end(), site);
    if (site != 0 && found != m_slots.end()) *found = 0;
}

void SiteSet::Trim()
{
    while (m_slots.size() > 1 && m_slots.back() == 0) m_slots.pop_back();
}
