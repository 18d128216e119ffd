#include "fuzz/Records.h"
#include "zentrel/RecordBuilder.h"
#include "zentrel/RecordLayout.h"

namespace fuzz {

void CacheRecord(Input bytes)
{
    FileInfo info;
    info.TotalHits = -7;
    info.Expires = DateTime{3};
    FileInfo untouched = info;
    untouched.Count = 1;
    info.RawBinary_528404(bytes);
    RequireSane(info);

    const auto record = zentrel::ParseCacheRecord(bytes);
    if (!record) return Require(info == untouched, "a broken record changes nothing but the count");
    Require(record->version <= zentrel::CacheRecord::kNewest, "only known versions are read");
    Require(info.QueryHash.empty() == (record->queryHash == 0), "a hash has a text");

    const auto letters = record->version == 3 ? layout::kCache : layout::kOldCache;
    Require(zentrel::ParseCacheRecord(Twin(bytes, letters)) == record, "both byte orders read the same");

    const auto newest = zentrel::WriteCacheRecord(*record);
    auto expected = *record;
    expected.version = zentrel::CacheRecord::kNewest;
    Require(zentrel::ParseCacheRecord(newest) == expected, "what is written is read again");

    FileInfo again;
    again.TotalHits = -7;
    again.RawBinary_528404(newest);
    Require(again == info, "the newest layout says the same");
}

}  // namespace fuzz
