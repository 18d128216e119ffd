#include "server/SiteList.h"

#include "base/Text.h"

#include <algorithm>
#include <numeric>
#include <utility>

void SiteList::Clear()
{
    m_sites.clear();
    m_checkedCount = 0;
}

void SiteList::Add(Site site)
{
    if (site.isChecked) ++m_checkedCount;
    m_sites.push_back(std::move(site));
}

void SiteList::Check(std::size_t row, bool isChecked)
{
    auto& site = m_sites[row];
    if (site.isChecked == isChecked) return;
    site.isChecked = isChecked;
    if (isChecked)
        ++m_checkedCount;
    else
        --m_checkedCount;
}

void SiteList::CheckAll(bool isChecked)
{
    for (auto& site : m_sites) site.isChecked = isChecked;
    m_checkedCount = isChecked ? m_sites.size() : 0;
}

std::vector<std::size_t> SiteList::SortBy(SiteColumn column)
{
    m_isDescending = m_sortColumn == column && !m_isDescending;
    m_sortColumn = column;
    return Sort();
}

void SiteList::Arrange()
{
    if (m_sortColumn) Sort();
}

std::vector<std::size_t> SiteList::Sort()
{
    const auto text = *m_sortColumn == SiteColumn::Name ? &Site::name : &Site::address;
    std::vector<std::size_t> order(m_sites.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        const int compared = CompareText(m_sites[left].*text, m_sites[right].*text);
        return m_isDescending ? compared > 0 : compared < 0;
    });
    std::vector<Site> sorted;
    sorted.reserve(m_sites.size());
    for (const auto before : order) sorted.push_back(std::move(m_sites[before]));
    m_sites = std::move(sorted);
    return order;
}
