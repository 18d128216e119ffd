#pragma once

#include "export/ExportPlan.h"

#include <QCheckBox>
#include <QWidget>

#include <utility>
#include <vector>

class CacheSnapshot;

// The page that asks what to export.
class ExportChoicePage : public QWidget {
    Q_OBJECT

public:
    ExportChoicePage(const CacheSnapshot& snapshot, const ExportPlan& plan, QWidget* parent);

    bool IsComplete() const;  // something was scanned, and something of it is wanted
    void Apply(ExportPlan& plan) const;

Q_SIGNALS:
    void Changed();  // what IsComplete() answers

private:
    const bool m_isScanned;
    std::vector<std::pair<ExportTable, QCheckBox*>> m_boxes;
};
