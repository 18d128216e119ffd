#pragma once

// A point in time as a count of days since 1899-12-30 00:00, the fraction being the time of day. 0 is the
// empty date. No time zone is attached or ever applied.
struct DateTime {
    double days = 0;

    friend bool operator==(const DateTime&, const DateTime&) = default;
};
