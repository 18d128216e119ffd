#include "stats/CounterChartScale.h"

#include "format/NumberText.h"
#include "platform/PdhStatus.h"
#include "stats/CounterText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kSteps = 3;           // as many as the axis should have; rounding adds up to two
constexpr double kLargest = 1e300;     // beyond, differences are no numbers any more
constexpr double kDistinct = 1e-9;     // of a value: what differs by less is the same
constexpr double kNamedUnits = 6;      // the powers of 1024 up to the one of EiB
constexpr double kNextUnit = 1.024;    // 1000 of a unit of bytes are one of the next already
constexpr double kLeastParts = 100;    // the least steps of sizes in a unit, which show two decimals
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

// The unit of bytes that a size is a small number of; up to the largest that has a name.
double UnitOf(double size)
{
    return std::pow(1024, std::min(std::floor(std::log2(std::max(size, 1.0)) / 10), kNamedUnits));
}

// One unit for the whole axis: that of its end, unless two decimals could not tell the steps apart.
double UnitOfAxis(double size, double step)
{
    const double unit = UnitOf(size * kNextUnit);
    return step * kLeastParts >= unit ? unit : UnitOf(step * kNextUnit);
}

// size: the largest on the axis, whatever its sign. The step, and the unit that it is round in.
std::pair<double, double> NiceStep(double step, double size, std::uint32_t type)
{
    if (IsPercent(type)) return {UpTo125(std::max(step, kLeastPercent)), 1};
    step = std::max(step, 1.0);
    if (type != PdhType::LargeRawCount) return {UpTo125(step), 1};
    const double unit = UnitOfAxis(size, step);
    return {unit * UpTo125(step / unit), unit};
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
    const auto [step, unit] =
        NiceStep((most - least) / kSteps, std::max(std::abs(least), std::abs(most)), type);
    const double low = std::floor(least / step) * step;
    const double high = std::ceil(most / step) * step;
    return {low, std::max(high, low + step), step, unit};
}

std::string ScaleLabel(double value, const ChartScale& scale, std::uint32_t type, const FormatLocale& locale)
{
    if (IsPercent(type)) return FormatNumber(value / 100, "0.##%", locale);
    if (type != PdhType::LargeRawCount || value == 0) return CounterText(value, type, locale);
    const auto name = CounterText(scale.unit, type, locale).substr(1);  // without the number 1
    return PlainText(std::round(value / scale.unit * kLeastParts) / kLeastParts, locale) + name;
}
