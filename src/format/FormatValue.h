#pragma once

#include "base/DateTime.h"
#include "format/FormatLocale.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

// The kinds of format that a label or column asks for; any other word is a picture (see FormatPicture) or
// one of the named formats "Fixed", "Short Date" and "Short Time".
namespace FormatKind {
inline constexpr std::string_view Plain = "";
inline constexpr std::string_view Large = "Large";        // a size in bytes
inline constexpr std::string_view Percent = "Percent";    // a fraction
inline constexpr std::string_view TimeSpan = "TimeSpan";  // 100-nanosecond ticks
}  // namespace FormatKind

using FormatInput =
    std::variant<std::monostate, std::int32_t, std::int64_t, float, double, DateTime, std::string>;

// The text in which the program shows a value. What the kind does depends on the type of the value:
//   float, double   Percent and TimeSpan show 0 as nothing; Plain shows two decimals
//   DateTime        short date and short time whatever the kind; nothing for the empty date
//   integers        Plain shows all digits; every other kind but Large is a named format or a picture
//   texts           as the number they hold; others are nothing in Large, unchanged in every other kind
//   nothing         0 in Large, nothing in every other kind
std::string FormatValue(const FormatInput& value, std::string_view kind, const FormatLocale& locale);
