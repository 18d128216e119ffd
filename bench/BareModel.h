#pragma once

#include "Floors.h"

#include <QAbstractItemModel>

// The least that Qt needs to show a BareArena; entries say that they never have children.
class BareModel : public QAbstractItemModel {
public:
    explicit BareModel(const BareArena& arena) : m_arena(arena), m_rows(arena.nodes.size())
    {
        for (const auto& children : arena.children)
            for (std::size_t row = 0; row < children.size(); ++row)
                m_rows[children[row]] = static_cast<int>(row);
    }

    QModelIndex index(int row, int column, const QModelIndex& parent) const override
    {
        if (!hasIndex(row, column, parent)) return {};
        return createIndex(row, column,
                           quintptr(m_arena.children[NodeOf(parent)][static_cast<std::size_t>(row)]));
    }
    QModelIndex parent(const QModelIndex& child) const override
    {
        const auto up = m_arena.nodes[NodeOf(child)].parent;
        return up == 0 ? QModelIndex() : createIndex(m_rows[up], 0, quintptr(up));
    }
    int rowCount(const QModelIndex& parent) const override
    {
        const auto node = NodeOf(parent);
        return node < m_arena.children.size() ? static_cast<int>(m_arena.children[node].size()) : 0;
    }
    int columnCount(const QModelIndex&) const override { return 1; }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const auto base = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        return rowCount(index) == 0 ? base | Qt::ItemNeverHasChildren : base;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole) return {};
        const auto& node = m_arena.nodes[NodeOf(index)];
        return QString::fromUtf8(m_arena.names.data() + node.name, static_cast<int>(node.nameSize));
    }

private:
    std::size_t NodeOf(const QModelIndex& index) const { return index.isValid() ? index.internalId() : 0; }

    const BareArena& m_arena;
    std::vector<int> m_rows;
};
