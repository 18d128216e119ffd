#include "stats/CounterChartScale.h"

#include "format/NumberText.h"
#include "platform/PdhStatus.h"
#include "stats/CounterText.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSteps = 3;           // as many as the axis should have; rounding adds up to two
constexpr double kLargest = 1e300;     // beyond, differences are no numbers any more
constexpr double kDistinct = 1e-9;     // of a value: what differs by less is the same
constexpr double kLeastPercent = .01;  // a step of percentages, which show two decimals

bool IsPercent(std::uint32_t type)
{
    return type == PdhType::RawFraction || type == PdhType::LargeRawFraction || type == PdhType::Timer100Ns;
}

double UpTo125(double step)
{
    const double power = std::pow(10, std::floor(std::log10(step)));
    for (const double factor : {1, 2, 5})
        if (step <= factor * power * (1 + kDistinct)) return factor * power;
    return 10 * power;
}

// The unit of bytes that a size is a small number of.
double UnitOf(double size)
{
    return std::pow(1024, std::floor(std::log2(size) / 10));
}

// In bytes, 1000 of a unit are one of the next already.
double NiceStep(double step, std::uint32_t type)
{
    if (IsPercent(type)) return UpTo125(std::max(step, kLeastPercent));
    step = std::max(step, 1.0);
    if (type != PdhType::LargeRawCount) return UpTo125(step);
    const double unit = UnitOf(step);
    const double nice = UpTo125(step / unit);
    return unit * (nice < 1000 ? nice : 1024);
}

bool IsFarFromZero(double least, double most)
{
    const double size = std::max(std::abs(least), std::abs(most));
    const bool hasOneSign = least > 0 || most < 0;
    const double distance = std::min(std::abs(least), std::abs(most));
    return hasOneSign && distance > most - least && most - least > size * kDistinct;
}

}  // namespace

ChartScale ScaleFor(double least, double most, std::uint32_t type)
{
    if (std::isnan(least) || std::isnan(most)) return {};
    least = std::clamp(least, -kLargest, kLargest);
    most = std::clamp(most, least, kLargest);
    if (IsPercent(type) || !IsFarFromZero(least, most)) {
        least = std::min(least, 0.0);
        most = std::max(most, 0.0);
    }
    if (least == most) return {};
    const double step = NiceStep((most - least) / kSteps, type);
    const double low = std::floor(least / step) * step;
    const double high = std::ceil(most / step) * step;
    return {low, std::max(high, low + step), step};
}

std::string ScaleLabel(double value, const ChartScale& scale, std::uint32_t type, const FormatLocale& locale)
{
    if (IsPercent(type)) return FormatNumber(value / 100, "0.##%", locale);
    const auto text = [&](double place) { return CounterText(place, type, locale); };
    if (type != PdhType::LargeRawCount || text(scale.low) != text(scale.low + scale.step)) return text(value);
    const double unit = UnitOf(scale.step);
    const auto name = text(unit).substr(1);  // without the number 1
    return PlainText(value / unit, locale) + name;
}
