#pragma once

#include "controls/PlainLabel.h"
#include "export/ExportJob.h"

#include <QProgressBar>
#include <QWidget>

// The page that shows how far a running export is.
class ExportRunPage : public QWidget {
    Q_OBJECT

public:
    explicit ExportRunPage(QWidget* parent);

    void ShowProgress(const ExportJob& job, std::int64_t rowsInAll);

private:
    PlainLabel* const m_state;
    QProgressBar* const m_bar;
    PlainLabel* const m_rows;
};
