#pragma once

#include "cache/FileTypeTable.h"
#include "cache/modListView.h"

#include <array>
#include <string>
#include <vector>

enum class FileTypeColumn { Extension, Count, Compressed, Uncompressed, Ratio };
inline constexpr int kFileTypeColumns = 5;

// The rows of the file type list as texts, with the order that the user gave them by clicks on the headers.
class FileTypeRows {
public:
    using Row = std::array<std::string, kFileTypeColumns>;
    using Order = modListView::SortOrder;
    using Permutation = std::vector<std::size_t>;  // for each row now, where it was before

    explicit FileTypeRows(FormatLocale locale) : m_locale(std::move(locale)) {}

    // Adds a row for each type of the table, in the table's order; the list's own text sort, while it is on,
    // then finds their places.
    void Fill(const FileTypeTable& types);
    void Clear() { m_rows.clear(); }

    // A click on a column's header: another column is sorted upwards, the same one the other way round.
    // Extensions are sorted by the list's own text sort, which stays on for rows to come.
    Permutation Click(FileTypeColumn column);

    std::size_t Size() const { return m_rows.size(); }
    const Row& operator[](std::size_t row) const { return m_rows[row]; }

    // Which column the rows are sorted by, -1 for none: the next scan's rows come as the table has them.
    int SortedColumn() const { return m_isSorted ? m_column : -1; }
    Order SortOrder() const { return m_order; }

private:
    std::vector<std::string> Cells(int column) const;
    Permutation Sort();
    Permutation Rearrange(Permutation order);

    FormatLocale m_locale;
    std::vector<Row> m_rows;
    int m_column = -1;
    Order m_order = Order::Ascending;
    bool m_hasOwnSort = false;
    bool m_isSorted = false;
};
