#include "format/SizeText.h"

#include "format/NumberText.h"

#include <array>
#include <cmath>

namespace {

constexpr std::array<std::string_view, 6> kUnits{" KiB", " MiB", " GiB", " TiB", " PiB", " EiB"};

}  // namespace

std::string FormatSize(double bytes, const FormatLocale& locale)
{
    if (!std::isfinite(bytes)) return PlainText(bytes, locale);
    std::size_t scaled = 0;
    for (; bytes > 1000 && scaled < kUnits.size(); ++scaled) bytes /= 1024;
    const bool whole = std::trunc(bytes) == bytes;
    std::string text = whole ? PlainText(bytes, locale) : FormatNumber(bytes, "Fixed", locale);
    if (scaled > 0) text += kUnits[scaled - 1];
    return text;
}

double ParseSizeText(std::string_view text, const FormatLocale& locale)
{
    const auto lastBlank = text.rfind(' ');
    if (lastBlank != std::string_view::npos) {
        const auto unit = text.substr(lastBlank);
        for (std::size_t i = 0; i < kUnits.size(); ++i) {
            if (unit != kUnits[i]) continue;
            const double count = ParseNumber(text.substr(0, text.find(' ')), locale).value_or(0);
            return std::ldexp(count, 10 * static_cast<int>(i + 1));
        }
    }
    return ParseNumber(text, locale).value_or(0);
}
