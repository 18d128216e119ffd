#include "export/ExportRunPage.h"

#include <QVBoxLayout>
#include <QLocale>

#include <algorithm>

namespace {

constexpr int kSteps = 1000;

}  // namespace

ExportRunPage::ExportRunPage(QWidget* parent)
    : QWidget(parent),
      m_state(new PlainLabel(QStringLiteral("lblRunState"), tr("State"), this)),
      m_bar(new QProgressBar(this)),
      m_rows(new PlainLabel(QStringLiteral("lblRunRows"), tr("Rows"), this))
{
    setObjectName(QStringLiteral("pagRun"));
    m_bar->setObjectName(QStringLiteral("barProgress"));
    m_bar->setAccessibleName(tr("Progress"));
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_state);
    all->addWidget(m_bar);
    all->addWidget(m_rows);
    all->addStretch();
}

void ExportRunPage::ShowProgress(const ExportJob& job, std::int64_t rowsInAll)
{
    const auto rows = job.RowsWritten();
    const auto state = job.IsCancelled()    ? tr("Stopping, and undoing what was written...")
                       : !job.IsConnected() ? tr("Connecting...")
                       : rows < rowsInAll   ? tr("Writing...")
                                            : tr("Finishing...");
    m_state->ShowText(state.toStdString());
    m_bar->setRange(0, job.IsConnected() ? kSteps : 0);
    const auto part = static_cast<double>(rows) / static_cast<double>(std::max<std::int64_t>(rowsInAll, 1));
    m_bar->setValue(static_cast<int>(kSteps * std::min(part, 1.0)));
    m_rows->ShowText(tr("%1 of %2 rows")
                         .arg(locale().toString(static_cast<qlonglong>(rows)),
                              locale().toString(static_cast<qlonglong>(rowsInAll)))
                         .toStdString());
}
