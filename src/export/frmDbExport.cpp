#include "export/frmDbExport.h"

#include "export/DataSourcePage.h"
#include "export/ExportChoicePage.h"
#include "export/ExportPicture.h"
#include "export/ExportPreviewPage.h"
#include "export/ExportRows.h"
#include "export/ExportRunPage.h"
#include "export/ExportSummaryPage.h"
#include "export/TableNamesPage.h"

#include <QDateTime>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <string>

namespace {

constexpr std::chrono::milliseconds kPollEvery{100};
constexpr int kWidth = 90;   // of the dialog at first, in average characters
constexpr int kHeight = 32;  // in lines of text
constexpr double kMillisecondsPerDay = 86'400'000;

QPushButton* Button(const char* name, const QString& caption, QWidget* parent)
{
    auto* const button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

DateTime Now()
{
    const auto now = QDateTime::currentDateTime();
    const auto days = QDate(1899, 12, 30).daysTo(now.date());
    return {static_cast<double>(days) + now.time().msecsSinceStartOfDay() / kMillisecondsPerDay};
}

}  // namespace

// The controls are made in the order in which a user meets them; that is the order of the Tab key.
frmDbExport::frmDbExport(RegistryStore& store, const CacheSnapshot& snapshot, MessageBoxes& boxes,
                         QWidget* parent, const DatabaseAccess& access)
    : QDialog(parent),
      m_snapshot(snapshot),
      m_boxes(boxes),
      m_access(access),
      m_pages(new QStackedWidget(this)),
      m_source(new DataSourcePage(store, access, this)),
      m_choice(new ExportChoicePage(snapshot, m_plan, this)),
      m_names(new TableNamesPage(m_plan, this)),
      m_preview(new ExportPreviewPage(snapshot, this)),
      m_run(new ExportRunPage(this)),
      m_summary(new ExportSummaryPage(this)),
      cmdPrevious(Button("cmdPrevious", tr("< &Previous"), this)),
      cmdNext(Button("cmdNext", tr("&Next >"), this)),
      cmdCancel(Button("cmdCancel", tr("&Cancel"), this))
{
    setObjectName(QStringLiteral("frmDbExport"));
    setWindowTitle(tr("Zentrel Report Export to Database"));
    setModal(true);
    LayOut();
    Listen();
    ShowPage(Source);
}

frmDbExport::~frmDbExport() = default;

void frmDbExport::LayOut()
{
    const std::initializer_list<QWidget*> pages{m_source, m_choice, m_names, m_preview, m_run, m_summary};
    for (auto* const page : pages) m_pages->addWidget(page);
    m_pages->setObjectName(QStringLiteral("pages"));

    const int gap = fontMetrics().height();
    auto* const page = new QHBoxLayout;
    page->setSpacing(gap);
    page->addWidget(new ExportPicture(this));
    page->addWidget(m_pages, 1);

    auto* const all = new QVBoxLayout(this);
    all->addLayout(page, 1);
    all->addSpacing(gap / 2);
    all->addLayout(EtchedLine(this));
    all->addLayout(Buttons());
    resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
}

QLayout* frmDbExport::Buttons()
{
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdPrevious);
    row->addWidget(cmdNext);
    row->addSpacing(fontMetrics().height());
    row->addWidget(cmdCancel);
    cmdNext->setDefault(true);
    return row;
}

void frmDbExport::Listen()
{
    connect(cmdPrevious, &QPushButton::clicked, this, &frmDbExport::Previous);
    connect(cmdNext, &QPushButton::clicked, this, &frmDbExport::Next);
    connect(cmdCancel, &QPushButton::clicked, this, &frmDbExport::CancelOrClose);
    connect(m_source, &DataSourcePage::Changed, this, &frmDbExport::ShowButtons);
    connect(m_choice, &ExportChoicePage::Changed, this, &frmDbExport::ShowButtons);
    m_poll.setInterval(kPollEvery);
    connect(&m_poll, &QTimer::timeout, this, &frmDbExport::LookAtRun);
}

// ---- the pages

void frmDbExport::ShowPage(Page page)
{
    m_pages->setCurrentIndex(page);
    ShowButtons();
    auto* const first = m_pages->currentWidget()->focusProxy();
    if (page == Run) {
        cmdCancel->setFocus();
    } else if (first != nullptr && first->isEnabled()) {
        first->setFocus();
    } else {
        cmdNext->setFocus();
    }
}

bool frmDbExport::IsComplete(Page page) const
{
    if (page == Source) return m_source->IsComplete();
    if (page == Choice) return m_choice->IsComplete();
    return page != Run;
}

void frmDbExport::ShowButtons()
{
    const auto page = Current();
    cmdPrevious->setEnabled(page != Source && page != Run && !m_isDone);
    cmdNext->setEnabled(page == Source || IsComplete(page));  // what the first page lacks is told
    cmdNext->setText(page == Summary ? tr("&Close") : page == Preview ? tr("&Finish") : tr("&Next >"));
    cmdCancel->setEnabled(page != Summary && !(m_job && m_job->IsCancelled()));
}

void frmDbExport::Next()
{
    switch (Current()) {
    case Source:
        if (!IsComplete(Source)) {
            m_boxes.Show(tr("Please select an ODBC data source first.").toStdString(), BoxStyle::Exclamation,
                         windowTitle().toStdString());
            return ShowPage(Source);
        }
        m_source->StopTest();
        return ShowPage(Choice);
    case Choice:
        m_choice->Apply(m_plan);
        m_names->ShowWanted(m_plan);
        return ShowPage(Tables);
    case Tables:
        if (!TakeNames()) return;
        m_preview->ShowPlan(m_plan, Stamp());
        return ShowPage(Preview);
    case Preview: return Start();
    case Summary: return accept();
    case Run: break;
    }
}

void frmDbExport::Previous()
{
    ShowPage(Current() == Summary ? Preview : static_cast<Page>(Current() - 1));
}

bool frmDbExport::TakeNames()
{
    m_names->Apply(m_plan);
    const auto wanted = m_plan.Wanted();
    const auto faulty = std::find_if(wanted.begin(), wanted.end(),
                                     [this](ExportTable table) { return !m_plan.Fault(table).empty(); });
    if (faulty == wanted.end()) return true;
    m_names->Select(*faulty);
    m_boxes.Show(m_plan.Fault(*faulty), BoxStyle::Exclamation, windowTitle().toStdString());
    return false;
}

// ---- the run

ExportStamp frmDbExport::Stamp() const
{
    return {m_snapshot.Server(), m_snapshot.ScannedAt(), Now(),
            "Quillet " + std::to_string(QUILLET_VERSION_MAJOR) + '.' + std::to_string(QUILLET_VERSION_MINOR)};
}

void frmDbExport::Start()
{
    m_rowsInAll = 0;
    for (const auto table : m_plan.Wanted())
        if (table != ExportTable::Runs) m_rowsInAll += RowCount(table, m_snapshot);
    m_job = std::make_unique<ExportJob>(m_access, m_source->Login(), m_plan, Stamp(), m_snapshot);
    m_duration.start();
    ShowPage(Run);
    LookAtRun();
    m_poll.start();
}

void frmDbExport::LookAtRun()
{
    const auto* const outcome = m_job->Poll();
    if (outcome == nullptr) {
        m_run->ShowProgress(*m_job, m_rowsInAll);
        return ShowButtons();
    }
    m_poll.stop();
    m_isDone = outcome->remains == ExportOutcome::Remains::Everything;
    m_summary->ShowOutcome(*outcome, m_plan, static_cast<double>(m_duration.elapsed()) / 1000);
    m_job.reset();
    if (m_isDone) m_source->WipePassword();
    ShowPage(Summary);
}

// ---- the end

void frmDbExport::CancelOrClose()
{
    if (!m_job) return reject();
    m_job->Cancel();
    LookAtRun();
}

void frmDbExport::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && cmdCancel->isEnabled()) {
        cmdCancel->click();
    } else {
        QDialog::keyPressEvent(event);
    }
}

// Hidden first: a database that is slow to stop does not keep the window in the way.
void frmDbExport::done(int result)
{
    m_poll.stop();
    hide();
    m_job.reset();
    m_source->StopTest();
    m_source->WipePassword();
    QDialog::done(result);
}
