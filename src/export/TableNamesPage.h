#pragma once

#include "export/ExportPlan.h"

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

// The page that asks for the names of the tables.
class TableNamesPage : public QWidget {
    Q_OBJECT

public:
    TableNamesPage(const ExportPlan& plan, QWidget* parent);

    void ShowWanted(const ExportPlan& plan);  // only these have names to choose
    void Apply(ExportPlan& plan) const;
    void Select(ExportTable table);  // the name, to be changed

private:
    PerTable<QLabel*> m_labels;
    PerTable<QLineEdit*> m_boxes;
};
