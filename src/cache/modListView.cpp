#include "cache/modListView.h"

#include "base/Text.h"
#include "cache/DateReading.h"
#include "format/NumberText.h"
#include "format/SizeText.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace {

constexpr std::size_t kMostCharacters = 31;

bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::string_view FirstCharacters(std::string_view text)
{
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (BeginsCharacter(text[i]) && ++characters > kMostCharacters) return text.substr(0, i);
    return text;
}

double ReadNumber(std::string_view text, const FormatLocale& locale)
{
    if (text.ends_with('%')) text.remove_suffix(1);
    return ParseNumber(text, locale).value_or(0);
}

double ReadCell(std::string_view text, modListView::SortMode mode, const FormatLocale& locale)
{
    text = FirstCharacters(text);
    switch (mode) {
    case modListView::SortMode::Date: return ReadDate(text, locale).value_or(DateTime{}).days;
    case modListView::SortMode::Number: return ReadNumber(text, locale);
    case modListView::SortMode::Size: return ParseSizeText(text, locale);
    }
    return 0;
}

template <class Compare>
std::vector<std::size_t> Sorted(std::size_t count, modListView::SortOrder order, Compare isLess)
{
    std::vector<std::size_t> rows(count);
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    if (order == modListView::SortOrder::Ascending)
        std::stable_sort(rows.begin(), rows.end(), isLess);
    else
        std::stable_sort(rows.begin(), rows.end(),
                         [&](std::size_t one, std::size_t other) { return isLess(other, one); });
    return rows;
}

}  // namespace

namespace modListView {

std::vector<std::size_t> SortListView(const std::vector<std::string>& cells, SortMode mode, SortOrder order,
                                      const FormatLocale& locale)
{
    std::vector<double> values;
    values.reserve(cells.size());
    for (const auto& cell : cells) values.push_back(ReadCell(cell, mode, locale));
    return Sorted(cells.size(), order,
                  [&](std::size_t left, std::size_t right) { return values[left] < values[right]; });
}

std::vector<std::size_t> SortByText(const std::vector<std::string>& cells, SortOrder order)
{
    return Sorted(cells.size(), order, [&](std::size_t left, std::size_t right) {
        return CompareText(cells[left], cells[right]) < 0;
    });
}

}  // namespace modListView
