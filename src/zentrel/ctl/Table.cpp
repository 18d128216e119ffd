#include "zentrel/ctl/Table.h"

#include "zentrel/Printable.h"

#include <algorithm>
#include <utility>

namespace zentrel {

namespace {

std::size_t CountCharacters(std::string_view text)
{
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

}  // namespace

void WriteTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], CountCharacters(Printable(row[i])));
    }
    for (const auto& row : rows) {
        std::size_t gap = 0;  // before the next text; nothing is written behind the last one
        for (std::size_t i = 0; i < row.size(); ++i) {
            const auto text = Printable(row[i]);
            if (!text.empty()) out << std::string(std::exchange(gap, 0), ' ') << text;
            gap += widths[i] - CountCharacters(text) + 2;
        }
        out << '\n';
    }
}

}  // namespace zentrel
