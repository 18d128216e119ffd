#pragma once

#include "export/DatabaseExport.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QWidget>

// The wizard's last page: what an export wrote, or why it failed and what was undone.
class ExportSummaryPage : public QWidget {
    Q_OBJECT

public:
    explicit ExportSummaryPage(QWidget* parent);

    void ShowOutcome(const ExportOutcome& outcome, const ExportPlan& plan, double seconds);

private:
    void ShowRows(const ExportOutcome& outcome, const ExportPlan& plan, double seconds);
    QString Details(const ExportOutcome& outcome, const ExportPlan& plan) const;

    QLabel* const m_headline;
    QTableWidget* const m_written;
    QLabel* const m_duration;
    QPlainTextEdit* const m_details;
};
