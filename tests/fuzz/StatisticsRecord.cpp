#include "fuzz/Records.h"
#include "zentrel/RecordBuilder.h"
#include "zentrel/RecordLayout.h"

namespace fuzz {

void StatisticsRecord(Input bytes)
{
    FileInfo start;
    start.CompressedSize = 18446744073709551616.0;  // the largest that a cache record can hold
    start.UncompressedSize = 1;
    FileInfo untouched = start;
    untouched.Count = 1;
    FileInfo info = start;
    info.RawBinary_528410(bytes);
    RequireSane(info);

    const auto record = zentrel::ParseStatisticsRecord(bytes);
    if (!record) return Require(info == untouched, "a broken record changes nothing but the count");
    Require(zentrel::ParseStatisticsRecord(Twin(bytes, layout::kStatistics)) == record,
            "both byte orders read the same");

    const auto newest = zentrel::WriteStatisticsRecord(*record);
    Require(zentrel::ParseStatisticsRecord(newest) == record, "what is written is read again");
    FileInfo again = start;
    again.RawBinary_528410(newest);
    Require(again == info, "the newest layout says the same");
}

}  // namespace fuzz
