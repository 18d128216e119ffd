#pragma once

#include "export/CacheReport.h"
#include "format/FormatLocale.h"

#include <string>
#include <vector>

// The chart of the file types: for each a bar of its uncompressed size with one of its compressed size in it.
// Drawn as SVG and by a painter; both take their measures from here, in pixels.
namespace ReportChart {

inline constexpr double kWidth = 640;
inline constexpr double kLegend = 26;  // height
inline constexpr double kRow = 30;
inline constexpr double kLabel = 120;  // width of the names on the left
inline constexpr double kBars = 330;   // width of the largest bar; its text stands on the right
inline constexpr double kGap = 8;
inline constexpr double kBarHeight = 18;
inline constexpr double kSquare = 12;         // of the legend
inline constexpr double kSecondLegend = 150;  // where its second part begins, after the first

struct Bar {
    std::string label;        // UTF-8 to be shown, short
    std::string text;         // the sizes in words
    double uncompressed = 0;  // width
    double compressed = 0;
};

// The largest file types and the sum of the others; empty when nothing has a size.
std::vector<Bar> BarsOf(const CacheReport& report, const FormatLocale& locale);

inline double HeightOf(const std::vector<Bar>& bars)
{
    return kLegend + static_cast<double>(bars.size()) * kRow;
}

// "Uncompressed" and "Compressed"; the whole in words.
std::string UncompressedText();
std::string CompressedText();
std::string Title();

std::string Svg(const std::vector<Bar>& bars);

}  // namespace ReportChart
