#include "base/Csv.h"

#include <charconv>
#include <cmath>

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
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}
