#include "server/SiteListModel.h"

#include "controls/Images.h"
#include "controls/PlainText.h"

namespace {

bool IsName(const QModelIndex& index)
{
    return index.column() == static_cast<int>(SiteColumn::Name);
}

QString TextOf(const Site& site, const QModelIndex& index)
{
    return PlainText(IsName(index) ? site.name : site.address);
}

}  // namespace

SiteListModel::SiteListModel(ServerSelection& selection, QObject* parent)
    : QAbstractTableModel(parent),
      m_selection(selection),
      m_website(Image(QStringLiteral("Website"))),
      m_webdown(Image(QStringLiteral("Webdown")))
{
}

void SiteListModel::Reset()
{
    beginResetModel();
    m_rows = static_cast<int>(m_selection.Sites().Size());
    endResetModel();
}

void SiteListModel::CheckAll(bool isChecked)
{
    m_selection.CheckAll(isChecked);
    if (m_rows > 0) Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, 0), {Qt::CheckStateRole});
}

void SiteListModel::SortBy(int column)
{
    if (static_cast<std::size_t>(m_rows) != m_selection.Sites().Size()) return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const auto before = m_selection.SortBy(static_cast<SiteColumn>(column));
    std::vector<int> now(before.size());
    for (std::size_t row = 0; row < before.size(); ++row) now[before[row]] = static_cast<int>(row);
    const auto kept = persistentIndexList();
    QModelIndexList moved;
    for (const auto& old : kept)
        moved.push_back(index(now[static_cast<std::size_t>(old.row())], old.column()));
    changePersistentIndexList(kept, moved);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

const Site* SiteListModel::SiteAt(const QModelIndex& index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < m_selection.Sites().Size() ? &m_selection.Sites()[row] : nullptr;
}

bool SiteListModel::IsChecked(const QModelIndex& index) const
{
    const auto* const site = SiteAt(index);
    return site != nullptr && site->isChecked;
}

void SiteListModel::Check(const QModelIndex& index, bool isChecked)
{
    if (SiteAt(index) == nullptr) return;
    m_selection.Check(static_cast<std::size_t>(index.row()), isChecked);
    const auto mark = index.siblingAtColumn(static_cast<int>(SiteColumn::Name));
    Q_EMIT dataChanged(mark, mark, {Qt::CheckStateRole});
}

int SiteListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int SiteListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

Qt::ItemFlags SiteListModel::flags(const QModelIndex& index) const
{
    auto flags = QAbstractTableModel::flags(index);
    if (index.isValid() && IsName(index)) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant SiteListModel::data(const QModelIndex& index, int role) const
{
    const auto* const site = SiteAt(index);
    if (site == nullptr) return {};
    if (role == Qt::DisplayRole) return TextOf(*site, index);
    if (!IsName(index)) return {};
    switch (role) {
    case Qt::DecorationRole: return site->isUp ? m_website : m_webdown;
    case Qt::CheckStateRole: return site->isChecked ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleTextRole:
        return site->isUp ? TextOf(*site, index) : tr("%1, not running").arg(TextOf(*site, index));
    default: return {};
    }
}

bool SiteListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !IsName(index) || SiteAt(index) == nullptr) return false;
    Check(index, value.toInt() == Qt::Checked);
    return true;
}

QVariant SiteListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == static_cast<int>(SiteColumn::Name) ? tr("Web Site") : tr("Address");
}
