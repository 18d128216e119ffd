#include "platform/UserLocale.h"

#include "base/Text.h"

#include <utility>

#include <langinfo.h>
#include <locale.h>

namespace {

class Locale {
public:
    Locale(int mask, const char* name) : m_locale(newlocale(mask, name, nullptr)) {}
    ~Locale()
    {
        if (m_locale != nullptr) freelocale(m_locale);
    }
    Locale(const Locale&) = delete;
    Locale& operator=(const Locale&) = delete;

    // Empty when the locale does not exist or its text is not UTF-8.
    std::string Text(nl_item item) const
    {
        if (m_locale == nullptr) return {};
        std::string text = nl_langinfo_l(item, m_locale);
        return IsValidUtf8(text) ? text : std::string();
    }

private:
    const locale_t m_locale;
};

bool IsPlainC(std::string_view name)
{
    return name == "C" || name == "POSIX" || name.starts_with("C.");
}

// Takes everything up to the next conversion off the pattern; returns it.
std::string_view TakeLiteral(std::string_view& pattern)
{
    const auto literal = pattern.substr(0, pattern.find('%'));
    pattern.remove_prefix(literal.size());
    return literal;
}

// Takes one conversion with its flags off the pattern; returns its letter, 0 at the end.
char TakeConversion(std::string_view& pattern)
{
    const auto letter = pattern.find_first_not_of("%-_0EO");
    const char conversion = letter == std::string_view::npos ? '\0' : pattern[letter];
    pattern.remove_prefix(letter == std::string_view::npos ? pattern.size() : letter + 1);
    return conversion;
}

}  // namespace

std::string TimeSeparatorOf(std::string_view timeFormat)
{
    static constexpr std::string_view kHours = "HIkl";
    while (!timeFormat.empty()) {
        TakeLiteral(timeFormat);
        const char first = TakeConversion(timeFormat);
        if (first == '\0' || kHours.find(first) == std::string_view::npos) continue;
        const auto afterHours = TakeLiteral(timeFormat);
        if (TakeConversion(timeFormat) != 'M') break;
        const auto afterMinutes = TakeLiteral(timeFormat);
        const bool endsThere = timeFormat.empty() && afterMinutes.empty();
        if (afterHours.empty() || (afterHours != afterMinutes && !endsThere)) break;
        return std::string(afterHours);
    }
    return ":";
}

UserLocale ReadUserLocale(const char* name)
{
    UserLocale user;
    const auto take = [](std::string& into, std::string text) {
        if (!text.empty()) into = std::move(text);
    };
    // One category at a time: a missing language for dates must not cost the decimal separator.
    take(user.decimalSeparator, Locale(LC_NUMERIC_MASK, name).Text(RADIXCHAR));
    const Locale time(LC_TIME_MASK, name);
    if (IsPlainC(time.Text(NL_LOCALE_NAME(LC_TIME)))) return user;
    take(user.shortDate, time.Text(D_FMT));
    const std::string format = time.Text(T_FMT);
    take(user.timeSeparator, TimeSeparatorOf(format == "%r" ? time.Text(T_FMT_AMPM) : format));
    return user;
}
