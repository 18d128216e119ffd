#pragma once

#include "base/Result.h"
#include "zentrel/CachedFile.h"
#include "zentrel/Metabase.h"

#include <cstdint>
#include <vector>

namespace zentrel {

// Where deleted branches wait to be freed. No path leads to their keys any longer, so no reader sees them,
// but each is still there with all that it names. All that the freeing has to know stands in the store
// itself: whoever comes later can take it up where it ended.

using DeletionId = std::uint64_t;

// Puts a key, with everything below it, into the trash of a deletion. The row that it had on its path must go
// in the same transaction. parentCacheId: of its former parent, 0 when that is no cache entry.
Done Bury(WriteTxn& txn, DeletionId deletion, const KeyRow& row, std::uint32_t parentCacheId);

// The deletions that have something in the trash.
Result<std::vector<DeletionId>> ListTrash(const Metabase& store);

// What one batch of keys was that is out of the store now.
struct FreedKeys {
    std::uint64_t entryCount = 0;   // variants not counted
    std::vector<CachedFile> files;  // that nobody names any longer; for the caller to remove
    bool isLast = false;            // nothing is left of the deletion
};

// Frees a bounded number of a deletion's keys in one transaction, whatever the tree's shape.
Result<FreedKeys> FreeBatch(Metabase& store, DeletionId deletion);

}  // namespace zentrel
