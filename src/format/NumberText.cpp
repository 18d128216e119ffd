#include "format/NumberText.h"

#include "base/Text.h"
#include "format/Picture.h"

#include <charconv>

namespace {

// With "." for the user's separator; empty when the text already held a ".".
std::string WithPoint(std::string_view text, const std::string& separator)
{
    std::string plain(text);
    if (separator == "." || separator.empty()) return plain;
    if (plain.find('.') != std::string::npos) return {};
    const auto at = plain.find(separator);
    return at == std::string::npos ? plain : plain.replace(at, separator.size(), ".");
}

}  // namespace

std::string PlainText(const DecimalText& number, const FormatLocale& locale)
{
    return number.Text(locale.decimalSeparator);
}

std::string FormatNumber(const DecimalText& number, std::string_view format, const FormatLocale& locale)
{
    if (format == "Fixed") return FormatPicture(number, "0.00", locale);
    if (format == "Percent") return FormatPicture(number, "0.00%", locale);
    return FormatPicture(number, format, locale);
}

std::optional<double> ParseNumber(std::string_view text, const FormatLocale& locale)
{
    text = TrimBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const std::string plain = WithPoint(text, locale.decimalSeparator);
    // The words for infinity and NaN, and a second sign, are numbers to from_chars but not here.
    if (plain.empty() || std::string_view("0123456789.").find(plain.front()) == std::string_view::npos)
        return {};
    double value = 0;
    const char* const end = plain.data() + plain.size();
    const auto [stop, error] = std::from_chars(plain.data(), end, value);
    if (error != std::errc() || stop != end) return {};
    return negative ? -value : value;
}
