#include "format/DateText.h"

#include "format/CivilDate.h"
#include "format/Show.h"
#include "format/TimeSpanText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdio>

namespace {

constexpr double kTicksPerMinute = 6e8;
constexpr double kTicksPerDay = 864e9;
constexpr double kDaysFrom1601 = 109205;

std::string Dates(std::initializer_list<double> values)
{
    return Show(values, [](double days) { return FormatDate({days}, {}); });
}

std::string InPattern(const char* pattern)
{
    return FormatShortDate({39146}, {".", ":", pattern});  // a Monday
}

TEST(DateText, ShowsDateAndTimeOnBothSidesOfTheEpoch)
{
    EXPECT_EQ(Dates({-kDaysFrom1601, -kDaysFrom1601 + 59.75}), "1601-01-01 00:00 | 1601-03-01 18:00");
    EXPECT_EQ(Dates({-0.5, 0.25, 1}), "1899-12-29 12:00 | 1899-12-30 06:00 | 1899-12-31 00:00");
    EXPECT_EQ(Dates({36585, 73050, 73110}), "2000-02-29 00:00 | 2099-12-31 00:00 | 2100-03-01 00:00");
    // Less than half a millisecond before midnight counts as midnight, date included.
    EXPECT_EQ(Dates({36585.99999, 36585.999999999}), "2000-02-29 23:59 | 2000-03-01 00:00");
    EXPECT_EQ(Dates({2958465, 21245100, -693960}),
              "9999-12-31 00:00 | 60067-02-07 00:00 | -0001-12-31 00:00");
    EXPECT_EQ(Dates({-INFINITY, NAN, 1e12}), "-Infinity | NaN | 1000000000000");
    EXPECT_EQ(FormatDate({}, {}), "");
    EXPECT_EQ(FormatShortDate({}, {}), "1899-12-30");
    EXPECT_EQ(FormatShortTime({NAN}, {}), "NaN");
    EXPECT_EQ(FormatDate({36525.5}, CommaLocale()), "31.12.1999 12.00");
}

TEST(DateText, LosesNoMinuteToBinaryFractions)
{
    for (const double day : {0.0, 1.0, 109204.0, 145731.0, 154321.0, 20000000.0}) {
        for (int minute = 0; minute < 1440; ++minute) {
            const double ticks = day * kTicksPerDay + minute * kTicksPerMinute;
            char expected[32];
            std::snprintf(expected, sizeof expected, "%02d:%02d", minute / 60, minute % 60);
            const DateTime date{ticks / kTicksPerDay - kDaysFrom1601};
            ASSERT_EQ(FormatShortTime(date, {}), expected) << day << " " << minute;
        }
    }
}

TEST(DateText, FollowsTheUsersPatternOrFallsBackToIso)
{
    EXPECT_EQ(InPattern("%m/%d/%y %D %F"), "03/05/07 03/05/07 2007-03-05");
    EXPECT_EQ(InPattern("%-d.%-m.%Y %e.%-e"), "5.3.2007  5.5");
    EXPECT_EQ(InPattern("%a %A, %b %h %B 100%%"), "Mon Monday, Mar Mar March 100%");
    EXPECT_EQ(InPattern("%Y\u5E74%m\u6708%d\u65E5"), "2007\u5E7403\u670805\u65E5");
    for (const auto unknown : {"%x", "%d %Q", "%d %", "%-", ""}) EXPECT_EQ(InPattern(unknown), "2007-03-05");
}

TEST(TimeSpanText, ShowsHoursMinutesSecondsMilliseconds)
{
    const auto spans = [](std::initializer_list<double> values) {
        return Show(values, [](double ticks) { return FormatTimeSpan(ticks, {}); });
    };
    EXPECT_EQ(spans({0, 9999, 10000, 12345678}), "0:00:00.000 | 0:00:00.000 | 0:00:00.001 | 0:00:01.234");
    EXPECT_EQ(spans({599999999, 36000000000, 864000000000}), "0:00:59.999 | 1:00:00.000 | 24:00:00.000");
    EXPECT_EQ(spans({18446744073709551615.0, 0x1p31 * 36e9}), "512409557:36:10.955 | 1:00:00.000");
    EXPECT_EQ(spans({INFINITY, -INFINITY, NAN}), "Infinity | -Infinity | NaN");
    EXPECT_LT(FormatTimeSpan(1e308, {}).size(), 24U);
    EXPECT_EQ(FormatTimeSpan(36012345678, CommaLocale()), "1:00:01,234");
}

}  // namespace

TEST(DateText, CountsEveryDayOfFourHundredYears)
{
    using namespace std::chrono;
    const sys_days first = year(1600) / 1 / 1;
    for (auto day = first; day < first + years(400); day += days(1)) {
        const year_month_day expected = day;
        const auto sinceEpoch = static_cast<double>((day - first).count()) - kDaysFrom1601 - 366;
        const CivilDate date = ToCivilTime({sinceEpoch})->date;
        ASSERT_EQ(date.year, int(expected.year()));
        ASSERT_EQ(date.month, static_cast<int>(unsigned(expected.month())));
        ASSERT_EQ(date.day, static_cast<int>(unsigned(expected.day())));
        ASSERT_EQ(date.weekday, static_cast<int>(weekday(day).c_encoding()));
    }
}
