#include "format/CivilDate.h"

#include <cmath>

namespace {

constexpr std::int64_t FloorDivide(std::int64_t value, std::int64_t by)
{
    const auto quotient = value / by;
    return value % by < 0 ? quotient - 1 : quotient;
}

// Counts in years that begin on March 1, so that the leap day is the last of its year, and in cycles of 400
// years, which all have the same length.
CivilDate CivilFromDays(std::int64_t daysSince18991230)
{
    constexpr std::int64_t kCycleDays = 146097;
    constexpr std::int64_t kYearZeroMarch = 693899;  // days from 0000-03-01 to 1899-12-30
    const auto days = daysSince18991230 + kYearZeroMarch;
    const auto cycle = FloorDivide(days, kCycleDays);
    const auto inCycle = days - cycle * kCycleDays;
    const auto year = (inCycle - inCycle / 1460 + inCycle / 36524 - inCycle / 146096) / 365;
    const auto inYear = inCycle - (365 * year + year / 4 - year / 100);
    const auto monthFromMarch = (5 * inYear + 2) / 153;
    const bool nextYear = monthFromMarch >= 10;

    CivilDate date;
    date.year = cycle * 400 + year + (nextYear ? 1 : 0);
    date.month = static_cast<int>(nextYear ? monthFromMarch - 9 : monthFromMarch + 3);
    date.day = static_cast<int>(inYear - (153 * monthFromMarch + 2) / 5 + 1);
    const auto weeks = FloorDivide(daysSince18991230 + 6, 7);  // 1899-12-30 was a Saturday
    date.weekday = static_cast<int>(daysSince18991230 + 6 - weeks * 7);
    return date;
}

}  // namespace

std::optional<CivilTime> ToCivilTime(DateTime value)
{
    constexpr double kFarthestDay = 1e11;
    constexpr std::int64_t kDay = 86400000, kHour = 3600000, kMinute = 60000;  // in milliseconds
    if (!(std::abs(value.days) <= kFarthestDay)) return {};
    const std::int64_t milliseconds = std::llround(value.days * static_cast<double>(kDay));
    const auto day = FloorDivide(milliseconds, kDay);
    const auto inDay = milliseconds - day * kDay;
    return CivilTime{CivilFromDays(day), static_cast<int>(inDay / kHour),
                     static_cast<int>(inDay % kHour / kMinute)};
}
