#pragma once

#include "export/DatabaseExport.h"

#include <QPlainTextEdit>
#include <QTableWidget>
#include <QWidget>

#include <vector>

class CacheSnapshot;
class QLabel;

// The page that shows what would be written: the tables, the first rows of one of them, and its SQL.
class ExportPreviewPage : public QWidget {
    Q_OBJECT

public:
    ExportPreviewPage(const CacheSnapshot& snapshot, QWidget* parent);

    void ShowPlan(const ExportPlan& plan, const ExportStamp& stamp);

private:
    QLabel* Heading(const QString& text, QWidget* of);
    void ShowTable(int row);

    const CacheSnapshot& m_snapshot;
    ExportPlan m_plan;
    ExportStamp m_stamp;
    std::vector<ExportTable> m_wanted;

    QTableWidget* const m_tables;
    QTableWidget* const m_rows;
    QPlainTextEdit* const m_sql;
};
