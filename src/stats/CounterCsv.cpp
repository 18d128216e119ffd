#include "stats/CounterCsv.h"

#include "base/Csv.h"

#include <cstdio>
#include <cstdlib>

#include <time.h>

std::string LocalIsoTime(std::int64_t utc)
{
    const auto milliseconds = ((utc % 1000) + 1000) % 1000;
    const time_t seconds = (utc - milliseconds) / 1000;
    tm local{};
    if (localtime_r(&seconds, &local) == nullptr) local = {};  // a year that no calendar has
    const long offset = std::labs(local.tm_gmtoff) / 60;
    char text[64];
    const auto length = strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    std::snprintf(text + length, sizeof text - length, ".%03d%c%02ld:%02ld", static_cast<int>(milliseconds),
                  local.tm_gmtoff < 0 ? '-' : '+', offset / 60, offset % 60);
    return text;
}

std::string CountersAsCsv(const CounterHistory& history, std::span<const std::string> names)
{
    std::string text = "Time";
    for (const auto& name : names) text.append(1, ',').append(csv::Cell(name));
    text += csv::kLineEnd;
    for (const auto& sample : history.Samples()) {
        text += LocalIsoTime(sample.time.utc);
        for (const double value : sample.values) text.append(1, ',').append(csv::Cell(value));
        text += csv::kLineEnd;
    }
    return text;
}
