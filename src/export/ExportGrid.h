#pragma once

#include "controls/CellDelegate.h"

#include <QHeaderView>
#include <QTableWidget>

// A table to look at: whole rows, nothing to edit, the Tab key leads out of it.
inline QTableWidget* ExportGrid(const char* name, const QString& meaning, QWidget* parent)
{
    auto* const grid = new QTableWidget(parent);
    grid->setObjectName(QLatin1String(name));
    grid->setAccessibleName(meaning);
    grid->setItemDelegate(new CellDelegate(grid));
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setTabKeyNavigation(false);
    grid->setWordWrap(false);
    grid->setShowGrid(false);
    grid->setAlternatingRowColors(true);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() * 4 / 3);
    grid->horizontalHeader()->setHighlightSections(false);
    return grid;
}

inline void SetExportCell(QTableWidget* grid, int row, int column, const QString& text, bool isNumber = false)
{
    auto* const item = new QTableWidgetItem(text);
    if (isNumber) item->setTextAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    grid->setItem(row, column, item);
}
