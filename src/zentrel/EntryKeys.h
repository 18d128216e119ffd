#pragma once

#include "base/Result.h"
#include "zentrel/CachedFile.h"
#include "zentrel/Metabase.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace zentrel {

// What makes a key a cache entry, or a variant of one, and how that is undone.

bool IsEntry(const KeyRow& row);    // a cached URL
bool IsVariant(const KeyRow& row);  // a query of its parent
bool HasRecord(const KeyRow& row);
std::uint32_t CacheIdOf(const KeyRow& row);  // 0 for what is no entry

// Whether deletions leave the key where it is: it leads to a site's root, or was set up with more than a
// cached URL brings. depth: segments in its path.
bool Stays(const KeyRow& row, std::size_t depth);
// The properties without those of an entry or a variant, and those alone.
PropertySet OwnProperties(const KeyRow& row);
PropertySet EntryProperties(const KeyRow& row);

// Adds the cached files that the key's records name. parentCacheId: of the parent, for a variant.
void AppendFiles(const KeyRow& row, std::uint32_t parentCacheId, std::vector<CachedFile>& files);

// Takes everything off a key that makes it an entry or a variant, and removes the key itself when nothing
// else is left of it. Keys down to a site's root stay in any case.
Done StripEntry(WriteTxn& txn, std::string_view path, const KeyRow& row);

// Goes up from a key and removes what has become of no use: folders without children, and entries without
// a record and without variants. Nothing happens to a key that is not there.
Done TidyUpwards(WriteTxn& txn, std::string_view path);

}  // namespace zentrel
