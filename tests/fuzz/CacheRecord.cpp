#include "fuzz/Records.h"

namespace fuzz {

void CacheRecord(Input bytes)
{
    FileInfo info;
    info.TotalHits = -7;
    info.Expires = DateTime{3};
    const auto record = RequireTaken(
        info, &FileInfo::RawBinary_528404, bytes, zentrel::ParseCacheRecord, zentrel::WriteCacheRecord,
        [](const auto& read) { return read.version == 3 ? layout::kCache : layout::kOldCache; });
    if (!record) return;
    Require(record->version <= zentrel::CacheRecord::kNewest, "only known versions are read");
    Require(info.QueryHash.empty() == (record->queryHash == 0), "a hash has a text");
}

}  // namespace fuzz
