#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <optional>

// A day of the Gregorian calendar, reckoned backwards without end; the year before 1 is 0.
struct CivilDate {
    std::int64_t year = 0;
    int month = 0;    // 1 to 12
    int day = 0;      // 1 to 31
    int weekday = 0;  // 0 Sunday to 6 Saturday
};

// A date with its time of day, which is never negative: half a day before a midnight is the noon before.
struct CivilTime {
    CivilDate date;
    int hour = 0;
    int minute = 0;
};

// Rounds to the nearest millisecond first, so that a minute that a binary fraction falls just short of is
// not lost. Nothing for NaN and for dates more than 10^11 days away.
std::optional<CivilTime> ToCivilTime(DateTime value);
