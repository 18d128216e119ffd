#include "base/Csv.h"

#include <charconv>
#include <cmath>

namespace {

constexpr double kMostPlain = 1e15;  // whole numbers up to here are written without an exponent

}  // namespace

std::string csv::Cell(std::string_view text)
{
    constexpr std::string_view kFormulaStarts = "=+-@\t\r";
    std::string cell;
    if (!text.empty() && kFormulaStarts.find(text.front()) != std::string_view::npos) cell += '\'';
    cell += text;
    if (cell.find_first_of(",\"\r\n") == std::string::npos) return cell;
    std::string quoted = "\"";
    for (const char c : cell) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::string csv::Cell(double value)
{
    if (std::isnan(value)) return {};
    char text[32];
    char* const end = text + sizeof text;
    const bool isShort = std::trunc(value) == value && std::abs(value) < kMostPlain;
    const auto result =
        isShort ? std::to_chars(text, end, value, std::chars_format::fixed) : std::to_chars(text, end, value);
    return {text, result.ptr};
}
