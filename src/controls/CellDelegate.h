#pragma once

#include "controls/ReadingOrder.h"

#include <QStyledItemDelegate>

// Draws the cells of lists and trees: each text runs in its own direction, whatever the window's is.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = InReadingOrder(option->text, option->direction);
    }
};
