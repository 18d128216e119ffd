#pragma once

#include "base/Result.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zentrel {

// A web site's number, 1 to 2^31 - 1, written as its key is named: in digits alone, so that "01", which would
// be another key than site 1's, is none. Empty for anything else.
std::optional<std::int32_t> ParseSiteNumber(std::string_view text);

// Numbers with commas between them, as in "1,2,30". InvalidParameter when one of them is none.
Result<std::vector<std::int32_t>> ParseSiteNumbers(std::string_view text);

}  // namespace zentrel
