#include "format/DateText.h"

#include "format/CivilDate.h"
#include "format/NumberText.h"

#include <array>
#include <charconv>
#include <string_view>

namespace {

constexpr std::string_view kIsoDate = "%Y-%m-%d";
constexpr std::array<std::string_view, 12> kMonths{"January",   "February", "March",    "April",
                                                   "May",       "June",     "July",     "August",
                                                   "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> kWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                    "Thursday", "Friday", "Saturday"};
constexpr std::size_t kShortName = 3;

void AppendPadded(std::string& out, std::int64_t value, std::size_t width, char pad)
{
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), value < 0 ? -value : value).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (value < 0) out += '-';
    if (length < width) out.append(width - length, pad);
    out.append(digits.data(), length);
}

bool AppendPattern(std::string& out, std::string_view pattern, const CivilDate& date);

// False for a conversion that is not known here.
bool AppendConversion(std::string& out, char conversion, bool padded, const CivilDate& date)
{
    const auto number = [&](std::int64_t value, std::size_t width, char pad = '0') {
        AppendPadded(out, value, padded ? width : 1, pad);
    };
    const auto month = kMonths[static_cast<std::size_t>(date.month - 1)];
    const auto weekday = kWeekdays[static_cast<std::size_t>(date.weekday)];
    switch (conversion) {
    case 'd': number(date.day, 2); return true;
    case 'e': number(date.day, 2, ' '); return true;
    case 'm': number(date.month, 2); return true;
    case 'y': number((date.year % 100 + 100) % 100, 2); return true;
    case 'Y': number(date.year, 4); return true;
    case 'b':
    case 'h': out += month.substr(0, kShortName); return true;
    case 'B': out += month; return true;
    case 'a': out += weekday.substr(0, kShortName); return true;
    case 'A': out += weekday; return true;
    case 'D': return AppendPattern(out, "%m/%d/%y", date);
    case 'F': return AppendPattern(out, kIsoDate, date);
    case '%': out += '%'; return true;
    default: return false;
    }
}

bool AppendPattern(std::string& out, std::string_view pattern, const CivilDate& date)
{
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            out += pattern[i];
            continue;
        }
        bool padded = true;
        for (++i; i < pattern.size() && std::string_view("-EO").find(pattern[i]) != std::string_view::npos;
             ++i)
            padded = padded && pattern[i] != '-';
        if (i == pattern.size() || !AppendConversion(out, pattern[i], padded, date)) return false;
    }
    return !pattern.empty();
}

std::string DateOf(const CivilDate& date, const FormatLocale& locale)
{
    std::string text;
    if (AppendPattern(text, locale.shortDate, date)) return text;
    text.clear();
    AppendPattern(text, kIsoDate, date);
    return text;
}

std::string TimeOf(const CivilTime& time, const FormatLocale& locale)
{
    std::string text;
    AppendPadded(text, time.hour, 2, '0');
    text += locale.timeSeparator;
    AppendPadded(text, time.minute, 2, '0');
    return text;
}

}  // namespace

std::string FormatShortDate(DateTime value, const FormatLocale& locale)
{
    const auto time = ToCivilTime(value);
    return time ? DateOf(time->date, locale) : PlainText(value.days, locale);
}

std::string FormatShortTime(DateTime value, const FormatLocale& locale)
{
    const auto time = ToCivilTime(value);
    return time ? TimeOf(*time, locale) : PlainText(value.days, locale);
}

std::string FormatDate(DateTime value, const FormatLocale& locale)
{
    if (value == DateTime{}) return {};
    const auto time = ToCivilTime(value);
    return time ? DateOf(time->date, locale) + ' ' + TimeOf(*time, locale) : PlainText(value.days, locale);
}
