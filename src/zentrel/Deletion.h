#pragma once

#include "base/Result.h"
#include "zentrel/CachedFile.h"
#include "zentrel/KeyWalk.h"
#include "zentrel/Metabase.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

// Both deletions work on the keys and answer the cached files that nobody names any longer, for the caller
// to remove once the change is kept.

// Takes one cached URL with all its variants out of the store. FileNotFound when the path is no entry.
Result<std::vector<CachedFile>> DeleteEntryKeys(Metabase& store, std::string_view path);

// Takes every entry at and below a path out of the store, one bounded transaction at a time; keys that
// carry a key type or anything else of their own stay.
class TreeDeletion {
public:
    static Result<TreeDeletion> Begin(const Metabase& store, std::string_view path);  // FileNotFound

    // Makes the next transaction; false when it was the last one. `files` is replaced.
    Result<bool> DeleteBatch(Metabase& store, std::vector<CachedFile>& files);

    std::uint64_t EntryCount() const { return m_entryCount; }  // deleted so far, variants not counted

private:
    TreeDeletion(KeyWalk walk, std::string_view path) : m_walk(std::move(walk)), m_path(path) {}
    Result<bool> DeleteKeys(WriteTxn& txn, std::vector<CachedFile>& files);

    KeyWalk m_walk;
    std::string m_path;
    std::uint64_t m_entryCount = 0;
};

}  // namespace zentrel
