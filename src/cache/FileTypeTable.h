#pragma once

#include "cache/FileInfo.h"

#include <deque>
#include <string_view>
#include <unordered_map>

// The sums of every file type that a scan met, in the order first met.
class FileTypeTable {
public:
    FileTypeTable() = default;
    FileTypeTable(const FileTypeTable&) = delete;
    FileTypeTable& operator=(const FileTypeTable&) = delete;

    // The type's record, upper and lower case being the same type; a new one, with only Extension set (in
    // lower case), when the type was not met before. It stays where it is until Clear().
    FileInfo& Find(std::string_view extension);

    void Clear();

    std::size_t size() const { return m_types.size(); }
    auto begin() const { return m_types.begin(); }
    auto end() const { return m_types.end(); }

private:
    std::deque<FileInfo> m_types;
    std::unordered_map<std::string_view, FileInfo*> m_index;  // by the records' own Extension
    FileInfo* m_last = nullptr;                               // neighbours in a folder are mostly of one type
};
