#pragma once

#include "base/Result.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// A web site's number, 1 to 2^31 - 1, written in digits alone; empty for anything else.
std::optional<std::int32_t> ParseSiteNumber(std::string_view text);

// Numbers with commas between them, as in "1,2,30". InvalidParameter when one of them is none.
Result<std::vector<std::int32_t>> ParseSiteNumbers(std::string_view text);
