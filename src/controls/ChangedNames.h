#pragma once

#include <set>
#include <string>
#include <string_view>

// Which of a control's properties were set since it was loaded.
class ChangedNames {
public:
    void Mark(std::string_view name) { m_names.emplace(name); }
    bool Contains(std::string_view name) const { return m_names.find(name) != m_names.end(); }
    void Clear() { m_names.clear(); }

private:
    std::set<std::string, std::less<>> m_names;
};
