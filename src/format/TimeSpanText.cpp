#include "format/TimeSpanText.h"

#include "format/NumberText.h"
#include "format/Picture.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace {

struct Step {
    double divisor;  // how many of this piece make one of the next
    std::string_view picture;
};

constexpr double kTicksPerMillisecond = 10000;
constexpr std::array kSteps{Step{1000, "000"}, Step{60, "00."}, Step{60, "00:"}, Step{2147483647, "0:"}};

}  // namespace

std::string FormatTimeSpan(double ticks, const FormatLocale& locale)
{
    if (!std::isfinite(ticks)) return PlainText(ticks, locale);
    double left = std::trunc(std::abs(ticks) / kTicksPerMillisecond);
    const bool negative = ticks < 0 && left > 0;
    std::string text;
    for (const auto& step : kSteps) {
        const double piece = std::fmod(left, step.divisor);
        left = std::trunc(left / step.divisor);
        text.insert(0, FormatPicture(static_cast<std::int32_t>(piece), step.picture, locale));
    }
    return negative ? "-" + text : text;
}
