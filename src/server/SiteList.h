#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A web site that a server offers. Its texts may hold any bytes.
struct Site {
    std::int32_t number = 0;
    std::string name;     // for people; never empty
    std::string address;  // where it answers; see BindingsText
    bool isUp = true;     // it runs, or its state is not known
    bool isChecked = false;
};

enum class SiteColumn { Name = 0, Address = 1 };

// The rows of the site list: their order and their check marks.
class SiteList {
public:
    std::size_t Size() const { return m_sites.size(); }
    const Site& operator[](std::size_t row) const { return m_sites[row]; }
    std::size_t CheckedCount() const { return m_checkedCount; }

    void Clear();  // the sort column stays
    void Add(Site site);
    void Check(std::size_t row, bool isChecked);
    void CheckAll(bool isChecked);
    void Toggle(std::size_t row) { Check(row, !m_sites[row].isChecked); }

    // Sorts by a column in ascending order; when it is the sort column already, turns the order round.
    // Answers for each row the row where it stood before.
    std::vector<std::size_t> SortBy(SiteColumn column);
    // Brings rows that were added into the order that was chosen; none was: they stay as they came.
    void Arrange();
    void ForgetOrder() { m_sortColumn.reset(); }
    std::optional<SiteColumn> SortColumn() const { return m_sortColumn; }
    bool IsDescending() const { return m_isDescending; }

private:
    std::vector<std::size_t> Sort();

    std::vector<Site> m_sites;
    std::size_t m_checkedCount = 0;
    std::optional<SiteColumn> m_sortColumn;
    bool m_isDescending = false;
};
