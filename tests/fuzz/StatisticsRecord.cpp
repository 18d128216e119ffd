#include "fuzz/Records.h"

namespace fuzz {

void StatisticsRecord(Input bytes)
{
    FileInfo info;
    info.CompressedSize = 18446744073709551616.0;  // the largest that a cache record can hold
    info.UncompressedSize = 1;
    RequireTaken(info, &FileInfo::RawBinary_528410, bytes, zentrel::ParseStatisticsRecord,
                 zentrel::WriteStatisticsRecord, [](const auto&) { return layout::kStatistics; });
}

}  // namespace fuzz
