#pragma once

#include "cache/FileInfo.h"
#include "fuzz/Targets.h"
#include "zentrel/RecordBuilder.h"
#include "zentrel/RecordLayout.h"

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

// Takes the bytes into the file's record, and requires what holds for both kinds; gives the record that is in
// them. write: its newest layout. lettersOf: what its twin in the other byte order is made by.
template <class Record, class LettersOf>
std::optional<Record> RequireTaken(FileInfo& info, void (FileInfo::*take)(Input), Input bytes,
                                   std::optional<Record> (*parse)(Input),
                                   std::array<std::byte, Record::kSize> (*write)(const Record&),
                                   const LettersOf& lettersOf)
{
    const auto start = info;
    (info.*take)(bytes);
    RequireSane(info);
    const auto record = parse(bytes);
    auto again = start;
    if (record) {
        Require(parse(Twin(bytes, lettersOf(*record))) == record, "both byte orders read the same");
        const auto newest = write(*record);
        auto expected = *record;
        if constexpr (requires { expected.version; }) expected.version = Record::kNewest;
        Require(parse(newest) == expected, "what is written is read again");
        (again.*take)(newest);
        Require(again == info, "the newest layout says the same");
    } else {
        again.Count = 1;
        Require(again == info, "a broken record changes nothing but the count");
    }
    return record;
}

}  // namespace fuzz
