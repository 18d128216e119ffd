#pragma once

#include "contracts/MessageBoxes.h"
#include "export/CacheReport.h"
#include "format/FormatLocale.h"
#include "platform/BackgroundJob.h"

#include <QTimer>
#include <QWidget>

#include <atomic>
#include <memory>
#include <optional>

class QLabel;
class QLayout;
class QPushButton;
class QTextBrowser;
class ReportDocument;

// What the window of the report needs of the program.
struct ReportHost {
    // The last scan; null when nothing was scanned. Read, and let go, by another thread while IsBusy().
    std::function<std::unique_ptr<CacheSnapshot>()> snapshot;
    MessageBoxes& boxes;
    FormatLocale locale;
    // The name of the file to save to, whose suffix tells the format; empty = cancelled. Without it a file
    // dialog asks.
    std::function<QString(const QString& proposed)> askFileName = {};
    std::function<bool()> isScanning = {};  // the scan does not stand still now, so it cannot be read
};

// The report of the last scan, to be read and saved. What it shows is its own: the cache may be scanned
// again once it is made.
class frmReport : public QWidget {
    Q_OBJECT

public:
    explicit frmReport(ReportHost host, QWidget* parent = nullptr);
    ~frmReport() override;  // waits until the scan is not read any more

    // Makes the report of the last scan beside the window and shows it when it is done. One at a time.
    void GenerateReport();
    void Open();  // brings the window up with a new report

    // While the report is made: the scan must stand still.
    bool IsBusy() const { return m_job.has_value(); }

Q_SIGNALS:
    void BusyChanged(bool isBusy);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Work;

    QPushButton* AddButton(QLayout* row, const char* name, const QString& caption,
                           void (frmReport::*click)());
    void Poll();
    void Cancel();
    void CloseWindow() { close(); }
    void ShowState();
    void ShowDocument();
    void CopyReport();
    void SaveAs();
    QString AskFileName(const QString& proposed);
    QString ProposedName() const;

    ReportHost m_host;
    QTextBrowser* m_text;
    ReportDocument* m_document;
    QLabel* m_state;
    QPushButton *m_save = nullptr, *m_copy = nullptr, *m_refresh = nullptr;
    QTimer m_timer;
    std::shared_ptr<Work> m_work;
    std::optional<BackgroundJob<CacheReport>> m_job;
    std::shared_ptr<const CacheReport> m_report;
    QString m_notice;  // what is shown where there is no report
};
