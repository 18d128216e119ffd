#include "cache/FileTypeRows.h"

#include "format/FormatValue.h"

#include <utility>

namespace {

FileTypeRows::Row RowOf(const FileInfo& type, const FormatLocale& locale)
{
    return {type.Extension, FormatValue(type.Count, FormatKind::Plain, locale),
            FormatValue(type.CompressedSize, FormatKind::Large, locale),
            FormatValue(type.UncompressedSize, FormatKind::Large, locale),
            FormatValue(type.Ratio(), FormatKind::Percent, locale)};
}

modListView::SortMode ModeOf(FileTypeColumn column)
{
    const bool isSize = column == FileTypeColumn::Compressed || column == FileTypeColumn::Uncompressed;
    return isSize ? modListView::SortMode::Size : modListView::SortMode::Number;
}

}  // namespace

void FileTypeRows::Fill(const FileTypeTable& types)
{
    m_rows.reserve(m_rows.size() + types.size());
    for (const auto& type : types) m_rows.push_back(RowOf(type, m_locale));
    m_isSorted = m_hasOwnSort;
    if (m_hasOwnSort) Sort();
}

FileTypeRows::Permutation FileTypeRows::Click(FileTypeColumn column)
{
    const int clicked = static_cast<int>(column);
    const bool isAgain = clicked == m_column;
    m_order = isAgain && m_order == Order::Ascending ? Order::Descending : Order::Ascending;
    m_column = clicked;
    m_hasOwnSort = column == FileTypeColumn::Extension;
    m_isSorted = true;
    return Sort();
}

std::vector<std::string> FileTypeRows::Cells(int column) const
{
    std::vector<std::string> cells;
    cells.reserve(m_rows.size());
    for (const auto& row : m_rows) cells.push_back(row[static_cast<std::size_t>(column)]);
    return cells;
}

FileTypeRows::Permutation FileTypeRows::Sort()
{
    const auto cells = Cells(m_column);
    if (m_hasOwnSort) return Rearrange(modListView::SortByText(cells, m_order));
    const auto mode = ModeOf(static_cast<FileTypeColumn>(m_column));
    return Rearrange(modListView::SortListView(cells, mode, m_order, m_locale));
}

FileTypeRows::Permutation FileTypeRows::Rearrange(Permutation order)
{
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (const auto from : order) sorted.push_back(std::move(m_rows[from]));
    m_rows = std::move(sorted);
    return order;
}
