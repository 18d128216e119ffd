#include "cache/CacheTreeModel.h"

#include "controls/Images.h"
#include "controls/PlainText.h"

namespace {

constexpr std::array kKinds{NodeKind::Root, NodeKind::WebSite, NodeKind::Folder,
                            NodeKind::VDir, NodeKind::File,    NodeKind::MultiFile};

QString KindFile(NodeKind kind)
{
    return ImageFile(PlainText(ImageKey(kind)));
}

// The same picture in a selected row; Qt would tint it beyond recognition.
QIcon KindIcon(NodeKind kind)
{
    QIcon icon;
    for (const auto mode : {QIcon::Normal, QIcon::Selected}) {
        icon.addFile(KindFile(kind), {}, mode, QIcon::Off);
        if (kind == NodeKind::Folder)
            icon.addFile(ImageFile(QStringLiteral("ExpFolder")), {}, mode, QIcon::On);
    }
    return icon;
}

}  // namespace

CacheTreeModel::CacheTreeModel(QObject* parent) : QAbstractItemModel(parent)
{
    for (const auto kind : kKinds) m_icons[static_cast<std::size_t>(kind)] = KindIcon(kind);
}

void CacheTreeModel::SetTree(const CacheTree* tree)
{
    beginResetModel();
    m_tree = tree;
    endResetModel();
}

void CacheTreeModel::TakeOut(CacheTree& tree, NodeId node)
{
    const auto row = static_cast<int>(tree.Row(node));
    beginRemoveRows(IndexOf(tree.Parent(node)), row, row);
    tree.Remove(node);
    endRemoveRows();
}

NodeId CacheTreeModel::NodeOf(const QModelIndex& index)
{
    return index.isValid() ? static_cast<NodeId>(index.internalId()) : kNoNode;
}

QModelIndex CacheTreeModel::IndexOf(NodeId node) const
{
    if (m_tree == nullptr || node == kNoNode) return {};
    return createIndex(static_cast<int>(m_tree->Row(node)), 0, quintptr{node});
}

QModelIndex CacheTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column != 0 || row >= rowCount(parent)) return {};
    const auto up = NodeOf(parent);
    const auto node = up == kNoNode ? m_tree->Root() : m_tree->Child(up, static_cast<std::size_t>(row));
    return createIndex(row, 0, quintptr{node});
}

QModelIndex CacheTreeModel::parent(const QModelIndex& child) const
{
    if (m_tree == nullptr || !child.isValid()) return {};
    return IndexOf(m_tree->Parent(NodeOf(child)));
}

int CacheTreeModel::rowCount(const QModelIndex& parent) const
{
    if (m_tree == nullptr || parent.column() > 0) return 0;
    const auto node = NodeOf(parent);
    if (node == kNoNode) return m_tree->Root() == kNoNode ? 0 : 1;
    return m_tree->Depth(node) < kDeepestShown ? static_cast<int>(m_tree->ChildCount(node)) : 0;
}

int CacheTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

bool CacheTreeModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

Qt::ItemFlags CacheTreeModel::flags(const QModelIndex& index) const
{
    if (m_tree == nullptr || !index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags always = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return rowCount(index) == 0 ? always | Qt::ItemNeverHasChildren : always;
}

QVariant CacheTreeModel::data(const QModelIndex& index, int role) const
{
    if (m_tree == nullptr || !index.isValid()) return {};
    const auto node = NodeOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: return PlainText(m_tree->Text(node));
    case Qt::DecorationRole: return m_icons[static_cast<std::size_t>(m_tree->Kind(node))];
    default: return {};
    }
}
