#pragma once

#include "base/Text.h"
#include "help/HelpBook.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// The cells of a table row of Markdown, without their code signs; empty for any other line.
inline std::vector<std::string> CellsOf(std::string_view line)
{
    std::vector<std::string> cells;
    if (!line.starts_with('|') || line.starts_with("|--")) return cells;
    std::istringstream rest(std::string(line.substr(1)));
    for (std::string cell; std::getline(rest, cell, '|');) {
        cells.emplace_back(TrimBlanks(cell));
        std::erase(cells.back(), '`');
    }
    return cells;
}

// The rows of all tables of a help page, from the heading on, those at the tables' heads included.
inline std::vector<std::vector<std::string>> TableRows(const HelpBook& book, std::string_view key,
                                                       std::string_view heading = {})
{
    std::vector<std::vector<std::string>> rows;
    const auto text = book.TextOf(key);
    std::istringstream lines(text.substr(std::min(text.find(heading), text.size())));
    for (std::string line; std::getline(lines, line);)
        if (auto cells = CellsOf(line); !cells.empty()) rows.push_back(std::move(cells));
    return rows;
}
