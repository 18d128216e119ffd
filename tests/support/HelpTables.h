#pragma once

#include "base/Text.h"
#include "help/HelpBook.h"

#include <string>
#include <string_view>
#include <vector>

// The cells of a table row of Markdown, without their code signs; empty for any other line.
inline std::vector<std::string> CellsOf(std::string_view line)
{
    std::vector<std::string> cells;
    if (!line.starts_with('|') || line.starts_with("|--")) return cells;
    for (line.remove_prefix(1); !line.empty();) {
        const auto end = std::min(line.find('|'), line.size());
        std::string cell(TrimBlanks(line.substr(0, end)));
        std::erase(cell, '`');
        cells.push_back(std::move(cell));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return cells;
}

// The rows of all tables of a help page, from the heading on, those at the tables' heads included.
inline std::vector<std::vector<std::string>> TableRows(const HelpBook& book, std::string_view key,
                                                       std::string_view heading = {})
{
    std::vector<std::vector<std::string>> rows;
    const auto text = book.TextOf(key);
    auto rest = std::string_view(text).substr(std::min(text.find(heading), text.size()));
    while (!rest.empty()) {
        const auto end = std::min(rest.find('\n'), rest.size());
        if (auto cells = CellsOf(rest.substr(0, end)); !cells.empty()) rows.push_back(std::move(cells));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return rows;
}
