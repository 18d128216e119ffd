#include "zentrel/SiteNumber.h"

#include <charconv>

namespace zentrel {

std::optional<std::int32_t> ParseSiteNumber(std::string_view text)
{
    if (text.starts_with('0')) return std::nullopt;
    std::int32_t number = 0;
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end || number < 1) return std::nullopt;
    return number;
}

Result<std::vector<std::int32_t>> ParseSiteNumbers(std::string_view text)
{
    std::vector<std::int32_t> numbers;
    for (;;) {
        const auto comma = text.find(',');
        const auto number = ParseSiteNumber(text.substr(0, comma));
        if (!number)
            return Fail(Code::InvalidParameter, "Sites",
                        "Web sites are given by their numbers, as in 1,2,30, or as the word \"all\"");
        numbers.push_back(*number);
        if (comma == std::string_view::npos) return numbers;
        text.remove_prefix(comma + 1);
    }
}

}  // namespace zentrel
