#pragma once

#include "cache/FileInfo.h"
#include "fuzz/Targets.h"

#include <cmath>
#include <initializer_list>

namespace fuzz {

// What holds for a record of one file whatever a server sent for it.
inline void RequireSane(const FileInfo& info)
{
    for (const double value :
         {info.UncompressedSize, info.CompressedSize, info.CacheDate.days, info.Expires.days,
          info.FileDate.days, info.TotalLife, info.CpuTime, info.ServedCompressed, info.UncompEquivalent,
          info.CurrentSavings(), info.BandwidthSavings(), double{info.Ratio()}, double{info.Boost()},
          double{info.CacheHitsRatio()}, info.AvgCacheLife(), info.CompCpuTime()})
        Require(std::isfinite(value), "numbers are finite");
    Require(info.Count == 1, "a parsed record counts one file");
    Require(info.AvgCompLevel() == info.CompLevel, "one file's average level is its level");
    Require(info.CacheFilePath().empty(), "no cache id, no file");

    FileInfo sum = info;
    sum.Add(info);
    sum.Subtract(info);
    Require(sum == info, "subtracting undoes adding");
}

}  // namespace fuzz
