#pragma once

#include "cache/CacheTree.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <array>

// Shows a CacheTree in Qt's views: one column, the tree's root as the only top-level row. Holds nothing of
// its own but the icons of the kinds. The tree must not change while it is set, but for the records in it.
class CacheTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    // Levels below this one are not shown: Qt's tree view recurses with depth, which a server may choose.
    static constexpr unsigned kDeepestShown = 1000;

    explicit CacheTreeModel(QObject* parent = nullptr);

    // Null shows nothing. The tree is not owned.
    void SetTree(const CacheTree* tree);

    // Takes a node that is not the root out of `tree`, the one that is set, and out of the views.
    void TakeOut(CacheTree& tree, NodeId node);

    static NodeId NodeOf(const QModelIndex& index);  // kNoNode for an invalid index
    QModelIndex IndexOf(NodeId node) const;          // invalid for kNoNode and without a tree

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // No tooltip: Qt would take a server's text for markup.
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const CacheTree* m_tree = nullptr;
    std::array<QIcon, 6> m_icons;  // by kind; an expanded row shows its icon's "on" picture
};
