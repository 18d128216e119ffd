#pragma once

#include "base/Result.h"
#include "zentrel/CachedFile.h"
#include "zentrel/Metabase.h"
#include "zentrel/Trash.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

// Takes one cached URL with all its variants out of the store. Answers the cached files that nobody names any
// longer, for the caller to remove once the change is kept. FileNotFound when the path is no entry.
Result<std::vector<CachedFile>> DeleteEntryKeys(Metabase& store, std::string_view path);

// Takes every entry at and below a path away from all readers at once: one transaction moves them into the
// trash. Keys that were set up with something of their own stay, with the keys that lead to them. The
// transaction's size depends on those alone.
class TreeDeletion {
public:
    // Looks through the whole tree. Until Unlink nothing may be set up below the path; entries may come and
    // go. FileNotFound when there is no such key.
    static Result<TreeDeletion> Plan(const Metabase& store, std::string_view path);

    // What went then waits in the trash under the id that this answers. FileNotFound when the key is gone.
    Result<DeletionId> Unlink(Metabase& store) const;

private:
    // A key that stays. Parents come before their children.
    struct Kept {
        std::size_t parent = 0;  // in m_kept
        std::string name;
        std::uint32_t childCount = 0;  // kept ones
    };
    struct Moved;

    explicit TreeDeletion(std::string_view path) : m_path(path) {}
    void Keep(std::vector<std::size_t>& branch, std::string_view path);
    Done UnlinkAll(WriteTxn& txn, DeletionId deletion, const KeyRow& parent) const;
    Done UnlinkAround(WriteTxn& txn, DeletionId deletion, const KeyRow& parent) const;
    static Result<Moved> Rebuild(WriteTxn& txn, DeletionId deletion, const Kept& key, const Moved& parent);

    std::string m_path;
    std::vector<Kept> m_kept;  // front: the key at the path; empty when nothing stays
};

}  // namespace zentrel
