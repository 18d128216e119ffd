#include "cache/FileTypeTable.h"

#include "base/Text.h"

#include <utility>

namespace {

// What stands behind the last dot of a path may be nearly the whole path. Longer ones share a type.
constexpr std::size_t kLongestType = 255;

}  // namespace

FileInfo& FileTypeTable::Find(std::string_view extension)
{
    extension = extension.substr(0, kLongestType);
    if (m_last != nullptr && m_last->Extension == extension) return *m_last;

    // Scanned extensions are in lower case already, so they are looked up as they come first.
    auto entry = m_index.find(extension);
    if (entry == m_index.end()) {
        auto key = LowerCase(extension);
        entry = m_index.find(key);
        if (entry == m_index.end()) {
            auto& type = m_types.emplace_back();
            type.Extension = std::move(key);
            entry = m_index.emplace(type.Extension, &type).first;
        }
    }
    m_last = entry->second;
    return *m_last;
}

void FileTypeTable::Clear()
{
    m_last = nullptr;
    m_index.clear();
    m_types.clear();
}
