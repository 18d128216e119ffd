#pragma once

#include "contracts/MessageBoxes.h"
#include "export/DatabaseAccess.h"
#include "export/ExportJob.h"
#include "export/ExportPlan.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include <memory>
#include <optional>

class CacheSnapshot;
class DataSourcePage;
class ExportChoicePage;
class ExportPreviewPage;
class ExportRunPage;
class ExportSummaryPage;
class RegistryStore;
class TableNamesPage;

// The wizard "Zentrel Report Export to Database": data source, what to export, names of the tables, preview,
// the run, what came of it. May be closed at any moment: a running export is then cancelled.
//
// The snapshot must stand still while the window is open; all references must outlive it.
class frmDbExport : public QDialog {
    Q_OBJECT

public:
    frmDbExport(RegistryStore& store, const CacheSnapshot& snapshot, MessageBoxes& boxes,
                QWidget* parent = nullptr, const DatabaseAccess& access = {});
    ~frmDbExport() override;

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Page { Source, Choice, Tables, Preview, Run, Summary };  // in their order

    void LayOut();
    QLayout* Buttons();
    void Listen();

    void ShowPage(Page page);
    void ShowButtons();
    bool IsComplete(Page page) const;
    Page Current() const { return static_cast<Page>(m_pages->currentIndex()); }

    void Next();
    void Previous();
    void CancelOrClose();
    bool TakeNames();
    ExportStamp Stamp() const;
    void Start();
    void LookAtRun();

    const CacheSnapshot& m_snapshot;
    MessageBoxes& m_boxes;
    const DatabaseAccess m_access;

    ExportPlan m_plan;
    std::unique_ptr<ExportJob> m_job;  // while it runs
    std::int64_t m_rowsInAll = 0;
    bool m_isDone = false;  // an export succeeded
    QElapsedTimer m_duration;
    QTimer m_poll;

    QStackedWidget* const m_pages;
    DataSourcePage* const m_source;
    ExportChoicePage* const m_choice;
    TableNamesPage* const m_names;
    ExportPreviewPage* const m_preview;
    ExportRunPage* const m_run;
    ExportSummaryPage* const m_summary;

public:
    QPushButton* const cmdPrevious;
    QPushButton* const cmdNext;
    QPushButton* const cmdCancel;
};
