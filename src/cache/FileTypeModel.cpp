#include "cache/FileTypeModel.h"

#include "controls/PlainText.h"
#include "controls/ReadingOrder.h"

#include <QGuiApplication>

#include <array>

namespace {

Qt::Alignment AlignmentOf(int column)
{
    switch (static_cast<FileTypeColumn>(column)) {
    case FileTypeColumn::Extension: return Qt::AlignLeft | Qt::AlignVCenter;
    case FileTypeColumn::Compressed:
    case FileTypeColumn::Uncompressed: return Qt::AlignRight | Qt::AlignVCenter;
    case FileTypeColumn::Count:
    case FileTypeColumn::Ratio: break;
    }
    return Qt::AlignCenter;
}

// The columns in words, for those to whom the table is read out.
QString FullName(int column)
{
    const std::array<QString, kFileTypeColumns> names{
        FileTypeModel::tr("File type"), FileTypeModel::tr("Count of files"),
        FileTypeModel::tr("Compressed size"), FileTypeModel::tr("Uncompressed size"),
        FileTypeModel::tr("What remains after compression, in percent")};
    return names[static_cast<std::size_t>(column)];
}

QString Caption(int column)
{
    const std::array<QString, kFileTypeColumns> captions{
        FileTypeModel::tr("Ext"), FileTypeModel::tr("Count"), FileTypeModel::tr("Comp"),
        FileTypeModel::tr("Uncomp"), FileTypeModel::tr("Ratio (%)")};
    return captions[static_cast<std::size_t>(column)];
}

}  // namespace

FileTypeModel::FileTypeModel(FormatLocale locale, QObject* parent)
    : QAbstractTableModel(parent),
      m_rows(std::move(locale))
{
}

void FileTypeModel::Fill(const FileTypeTable& types)
{
    beginResetModel();
    m_rows.Fill(types);
    m_icons.assign(m_rows.Size(), {});
    endResetModel();
}

void FileTypeModel::Clear()
{
    beginResetModel();
    m_rows.Clear();
    m_icons.clear();
    endResetModel();
}

void FileTypeModel::Click(FileTypeColumn column)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const auto order = m_rows.Click(column);
    MoveIcons(order);
    std::vector<int> now(order.size());
    for (std::size_t row = 0; row < order.size(); ++row) now[order[row]] = static_cast<int>(row);
    const auto kept = persistentIndexList();
    QModelIndexList moved;
    moved.reserve(kept.size());
    for (const auto& old : kept)
        moved.push_back(index(now[static_cast<std::size_t>(old.row())], old.column()));
    changePersistentIndexList(kept, moved);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void FileTypeModel::MoveIcons(const FileTypeRows::Permutation& order)
{
    std::vector<QIcon> moved;
    moved.reserve(order.size());
    for (const auto from : order) moved.push_back(std::move(m_icons[from]));
    m_icons = std::move(moved);
}

int FileTypeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.Size());
}

int FileTypeModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kFileTypeColumns;
}

QVariant FileTypeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole) return PlainText(m_rows[row][column]);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(index.column()));
    if (role == Qt::DecorationRole && column == 0) return m_icons[row];
    return {};
}

bool FileTypeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::DecorationRole || !index.isValid() || index.column() != 0) return false;
    m_icons[static_cast<std::size_t>(index.row())] = value.value<QIcon>();
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole});
    return true;
}

QVariant FileTypeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kFileTypeColumns) return {};
    switch (role) {
    case Qt::DisplayRole: return InReadingOrder(Caption(section), QGuiApplication::layoutDirection());
    case Qt::TextAlignmentRole: return QVariant::fromValue(AlignmentOf(section));
    case Qt::AccessibleTextRole:
    case Qt::ToolTipRole: return FullName(section);
    default: return {};
    }
}
