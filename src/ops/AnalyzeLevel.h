#pragma once

#include "format/FormatLocale.h"
#include "ops/DecompressFile.h"
#include "zentrel/Compressor.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

inline constexpr int kFirstLevel = 1;
inline constexpr int kLastLevel = 9;

// What compressing a file at one level came to.
struct LevelFigures {
    std::uint32_t OutputSize = 0;  // bytes
    double ProcessTime = 0;        // processor time as a fraction of a day
};

using FiguresByLevel = std::array<std::optional<LevelFigures>, kLastLevel + 1>;  // 0 is never used

enum class LevelStage { Compress, Access };  // what failed: the compressor, or reading the file

struct LevelFailure {
    LevelStage stage = LevelStage::Compress;
    SystemError error;
};

// Compresses the file and keeps only the figures. A cancelled level fails with Cancelled.
tl::expected<LevelFigures, LevelFailure> AnalyzeLevel(zentrel::Compressor& compressor,
                                                      const std::string& file, int level,
                                                      const StepProgress& progress);

double SecondsOf(const LevelFigures& figures);

// One row of the level list; sizes and times that are not known are "???".
struct LevelRow {
    std::string key;  // "C1" to "C9"
    std::string level;
    std::string size;
    std::string time;  // seconds with three decimals, or "< 10 ms"
};

LevelRow RowOfLevel(int level, const std::optional<LevelFigures>& figures, const FormatLocale& locale);
