#include "cache/DateReading.h"

#include "format/DateText.h"
#include "format/NumberText.h"

#include <array>
#include <charconv>
#include <chrono>

namespace {

constexpr std::string_view kIsoDate = "%Y-%m-%d";
constexpr std::array<std::string_view, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int kPivotYear = 30;

struct Fields {
    int year = 0;
    int month = 0;
    int day = 0;
};

bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Takes what it reads off the front of the text.
class Reader {
public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    bool IsAtEnd() const { return m_rest.empty(); }

    bool Take(std::string_view word)
    {
        if (!m_rest.starts_with(word)) return false;
        m_rest.remove_prefix(word.size());
        return true;
    }

    bool Number(int& value, std::size_t mostDigits)
    {
        while (Take(" ")) {
        }
        const auto digits = m_rest.substr(0, mostDigits);
        if (digits.empty() || digits.front() == '-') return false;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (error != std::errc()) return false;
        m_rest.remove_prefix(static_cast<std::size_t>(end - digits.data()));
        return true;
    }

    bool Letters()
    {
        const auto before = m_rest.size();
        while (!m_rest.empty() && IsLetter(m_rest.front())) m_rest.remove_prefix(1);
        return m_rest.size() < before;
    }

    bool Month(int& month)
    {
        for (std::size_t i = 0; i < kMonths.size(); ++i)
            if (m_rest.starts_with(kMonths[i])) month = static_cast<int>(i) + 1;
        return month != 0 && Letters();
    }

private:
    std::string_view m_rest;
};

bool ReadPattern(Reader& text, std::string_view pattern, Fields& fields);

bool ReadConversion(Reader& text, char conversion, Fields& fields)
{
    switch (conversion) {
    case 'd':
    case 'e': return text.Number(fields.day, 2);
    case 'm': return text.Number(fields.month, 2);
    case 'Y': return text.Number(fields.year, 4);
    case 'y':
        if (!text.Number(fields.year, 2)) return false;
        fields.year += fields.year < kPivotYear ? 2000 : 1900;
        return true;
    case 'b':
    case 'h':
    case 'B': return text.Month(fields.month);
    case 'a':
    case 'A': return text.Letters();
    case 'D': return ReadPattern(text, "%m/%d/%y", fields);
    case 'F': return ReadPattern(text, kIsoDate, fields);
    case '%': return text.Take("%");
    default: return false;
    }
}

bool ReadPattern(Reader& text, std::string_view pattern, Fields& fields)
{
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            if (!text.Take(pattern.substr(i, 1))) return false;
            continue;
        }
        ++i;
        while (i < pattern.size() && std::string_view("-EO").find(pattern[i]) != std::string_view::npos) ++i;
        if (i == pattern.size() || !ReadConversion(text, pattern[i], fields)) return false;
    }
    return true;
}

// The time of day behind a date as a part of a day.
std::optional<double> ReadTime(Reader& text, const FormatLocale& locale)
{
    if (text.IsAtEnd()) return 0;
    int hours = 0;
    int minutes = 0;
    const bool isTime = text.Take(" ") && text.Number(hours, 2) && text.Take(locale.timeSeparator) &&
                        text.Number(minutes, 2) && text.IsAtEnd();
    if (!isTime || hours > 23 || minutes > 59) return std::nullopt;
    return (hours * 60 + minutes) / 1440.0;
}

std::optional<DateTime> ReadWith(std::string_view pattern, std::string_view text, const FormatLocale& locale)
{
    using namespace std::chrono;
    Reader reader(text);
    Fields fields;
    if (!ReadPattern(reader, pattern, fields)) return std::nullopt;
    const year_month_day date{year{fields.year}, month{static_cast<unsigned>(fields.month)},
                              day{static_cast<unsigned>(fields.day)}};
    const auto time = ReadTime(reader, locale);
    if (!date.ok() || !time) return std::nullopt;
    constexpr sys_days kFirst{year{1899} / December / 30};
    return DateTime{static_cast<double>((sys_days{date} - kFirst).count()) + *time};
}

}  // namespace

std::optional<DateTime> ReadDate(std::string_view text, const FormatLocale& locale)
{
    for (const auto pattern : {std::string_view(locale.shortDate), kIsoDate})
        if (const auto date = ReadWith(pattern, text, locale)) return date;
    if (const auto days = ParseNumber(text, locale)) return DateTime{*days};
    return std::nullopt;
}
