#include "format/DateText.h"

#include "format/CivilDate.h"
#include "format/Show.h"

#include <gtest/gtest.h>

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

TEST(DateText, CountsEveryDayOfFourHundredYears)
{
    CivilDate last = ToCivilTime({-kDaysFrom1601 - 366})->date;  // 1600-01-01, a Saturday
    EXPECT_EQ(last.year * 10000 + last.month * 100 + last.day, 16000101);
    EXPECT_EQ(last.weekday, 6);
    for (int day = 1; day <= 146097; ++day) {
        const CivilDate date = ToCivilTime({-kDaysFrom1601 - 366 + day})->date;
        const bool leap = last.year % 4 == 0 && (last.year % 100 != 0 || last.year % 400 == 0);
        const bool shortMonth = last.month == 4 || last.month == 6 || last.month == 9 || last.month == 11;
        const int length = last.month == 2 ? (leap ? 29 : 28) : shortMonth ? 30 : 31;
        const bool newMonth = last.day == length;
        const bool newYear = newMonth && last.month == 12;
        ASSERT_EQ(date.day, newMonth ? 1 : last.day + 1);
        ASSERT_EQ(date.month, newYear ? 1 : last.month + (newMonth ? 1 : 0));
        ASSERT_EQ(date.year, last.year + (newYear ? 1 : 0));
        ASSERT_EQ(date.weekday, (last.weekday + 1) % 7);
        last = date;
    }
}

TEST(DateText, FollowsTheUsersPatternOrFallsBackToIso)
{
    EXPECT_EQ(InPattern("%m/%d/%y %D %F"), "03/05/07 03/05/07 2007-03-05");
    EXPECT_EQ(InPattern("%-d.%-m.%Y %e.%-e"), "5.3.2007  5.5");
    EXPECT_EQ(InPattern("%Oy/%Om/%Od %Ey"), "07/03/05 07");
    EXPECT_EQ(InPattern("%a %A, %b %h %B 100%%"), "Mon Monday, Mar Mar March 100%");
    EXPECT_EQ(InPattern("%Y\u5E74%m\u6708%d\u65E5"), "2007\u5E7403\u670805\u65E5");
    for (const auto unknown : {"%x", "%d %Q", "%d %", "%-", ""}) EXPECT_EQ(InPattern(unknown), "2007-03-05");
}

}  // namespace
