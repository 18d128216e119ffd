#pragma once

#include "base/Result.h"
#include "zentrel/CacheFileReader.h"
#include "zentrel/Decompressor.h"

#include <cstdint>
#include <functional>
#include <string>

// Called between the blocks of a long step with how much of it is done, 0 to 1. False ends the step, which
// then fails with Cancelled.
using StepProgress = std::function<bool(double part)>;

// A file that unpacks to more is not analysed: a hostile one of 10 MB unpacks to 10 GB.
inline constexpr std::uint64_t kMostUnpackedBytes = std::uint64_t{2} << 30U;

// Writes what the source unpacks to into the file `target`, which must be there, in place of what it held.
// InvalidData: the source is damaged, incomplete or no compressed file, or unpacks to more than `mostBytes`;
// DiskFull: so little room would be left on the disk that others could run short. What was written until
// then stays in the target.
Done DecompressFile(zentrel::Decompressor& decompressor, zentrel::CacheFileReader& source,
                    const std::string& target, std::uint64_t mostBytes, const StepProgress& progress);
