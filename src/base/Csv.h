#pragma once

#include <string>
#include <string_view>

// Comma separated values as RFC 4180 has them.
namespace csv {

inline constexpr std::string_view kLineEnd = "\r\n";

// A text as a cell: in quotes where it needs them, and never a formula to the program that opens it.
std::string Cell(std::string_view text);

// In full, with "." as decimal point; whole numbers below 10^15 without an exponent. Empty for what is no
// number.
std::string Cell(double value);

}  // namespace csv
