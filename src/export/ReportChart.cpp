#include "export/ReportChart.h"

#include "base/Translate.h"
#include "export/ReadableText.h"
#include "export/ReportTables.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace ReportChart;

constexpr std::size_t kMostBars = 10;
constexpr std::size_t kMostOfLabel = 14;  // characters
constexpr double kBaseline = 13.5;        // of a text, in a bar's height

double Width(double size, double largest)
{
    return std::clamp(size / largest, 0.0, 1.0) * kBars;
}

std::vector<ReportPart> ShownParts(const CacheReport& report)
{
    auto parts = report.types.named;
    auto others = static_cast<std::int64_t>(parts.size()) + report.types.others;
    auto figures = report.types.otherFigures;
    if (parts.size() > kMostBars) {
        for (auto part = parts.begin() + kMostBars; part != parts.end(); ++part) figures.Add(part->figures);
        parts.resize(kMostBars);
    }
    others -= static_cast<std::int64_t>(parts.size());
    for (auto& part : parts) part.name = TypeName(part.name);
    if (others > 0) parts.push_back({OthersName(others), figures, 0});
    return parts;
}

std::string Number(double value)
{
    const auto tenths = std::lround(value * 10);
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
}

std::string SvgRect(double x, double y, double width, double height, const char* look)
{
    return "<rect class=\"" + std::string(look) + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) +
           "\" width=\"" + Number(width) + "\" height=\"" + Number(height) + "\"/>";
}

// The text is shown as it is: it has been escaped.
std::string SvgText(double x, double y, const char* look, const std::string& text)
{
    return "<text class=\"" + std::string(look) + "\" x=\"" + Number(x) + "\" y=\"" + Number(y) + "\">" +
           text + "</text>\n";
}

std::string SvgBar(const Bar& bar, double y)
{
    return SvgText(kLabel, y + kBaseline, "label", HtmlText(bar.label)) +
           SvgRect(kLabel + kGap, y, bar.uncompressed, kBarHeight, "whole") +
           SvgRect(kLabel + kGap, y, bar.compressed, kBarHeight, "part") +
           SvgText(kLabel + 2 * kGap + bar.uncompressed, y + kBaseline, "size", HtmlText(bar.text));
}

}  // namespace

namespace ReportChart {

std::vector<Bar> BarsOf(const CacheReport& report, const FormatLocale& locale)
{
    const auto parts = ShownParts(report);
    double largest = 0;
    for (const auto& part : parts)
        largest = std::max({largest, part.figures.uncompressedSize, part.figures.compressedSize});
    std::vector<Bar> bars;
    if (!(largest > 0)) return bars;
    for (const auto& part : parts) {
        const auto whole = part.figures.uncompressedSize, rest = part.figures.compressedSize;
        bars.push_back({ReadableText(part.name, kMostOfLabel),
                        FormatValue(rest, FormatKind::Large, locale) + " / " +
                            FormatValue(whole, FormatKind::Large, locale),
                        Width(whole, largest), Width(rest, largest)});
    }
    return bars;
}

std::string UncompressedText()
{
    return Translate("CacheReport", "Uncompressed");
}

std::string CompressedText()
{
    return Translate("CacheReport", "Compressed");
}

std::string Title()
{
    return Translate("CacheReport", "Sizes of the file types");
}

std::string Svg(const std::vector<Bar>& bars)
{
    const auto size = Number(kWidth) + ' ' + Number(HeightOf(bars));
    std::string svg =
        "<svg role=\"img\" viewBox=\"0 0 " + size + "\" aria-label=\"" + HtmlText(Title()) + "\">\n";
    const double first = kLabel + kGap, second = first + kSecondLegend;
    const double text = kSquare + kGap, baseline = kSquare - 1;
    svg += SvgRect(first, 0, kSquare, kSquare, "whole") +
           SvgText(first + text, baseline, "size", HtmlText(UncompressedText())) +
           SvgRect(second, 0, kSquare, kSquare, "part") +
           SvgText(second + text, baseline, "size", HtmlText(CompressedText()));
    double y = kLegend;
    for (const auto& bar : bars) {
        svg += SvgBar(bar, y);
        y += kRow;
    }
    return svg + "</svg>\n";
}

}  // namespace ReportChart
