#pragma once

#include "format/FormatLocale.h"

#include <cstddef>
#include <string>
#include <vector>

// How lists sort what their cells show.
namespace modListView {

enum class SortMode { Date = 0, Number = 1, Size = 4 };
enum class SortOrder { Ascending = 0, Descending = 1 };

// The order of cells: the first element is the index of the cell that comes first. Each text is read as the
// mode says, its first 31 characters only; one that cannot be read counts as 0, a number may carry a "%".
// Equals stay as they stand. A mode that is none of these leaves all as they stand.
std::vector<std::size_t> SortListView(const std::vector<std::string>& cells, SortMode mode, SortOrder order,
                                      const FormatLocale& locale);

// The same by the texts themselves, as CompareText orders them.
std::vector<std::size_t> SortByText(const std::vector<std::string>& cells, SortOrder order);

}  // namespace modListView
