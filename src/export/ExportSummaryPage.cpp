#include "export/ExportSummaryPage.h"

#include "controls/PlainText.h"
#include "export/ExportGrid.h"

#include <QVBoxLayout>
#include <QLocale>

namespace {

QLabel* WrappedLabel(const char* name, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

ExportSummaryPage::ExportSummaryPage(QWidget* parent)
    : QWidget(parent),
      m_headline(WrappedLabel("lblOutcome", this)),
      m_written(ExportGrid("grdWritten", tr("Rows that were written"), this)),
      m_duration(WrappedLabel("lblDuration", this)),
      m_details(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("pagSummary"));
    auto bold = m_headline->font();
    bold.setBold(true);
    m_headline->setFont(bold);
    m_written->setColumnCount(3);
    m_written->setHorizontalHeaderLabels({tr("What"), tr("Table"), tr("Rows")});
    m_written->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_details->setObjectName(QStringLiteral("txtDetails"));
    m_details->setAccessibleName(tr("What happened"));
    m_details->setReadOnly(true);
    m_details->setTabChangesFocus(true);

    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(m_headline);
    all->addSpacing(fontMetrics().height() / 2);
    all->addWidget(m_written, 1);
    all->addWidget(m_duration);
    all->addWidget(m_details, 1);
}

void ExportSummaryPage::ShowOutcome(const ExportOutcome& outcome, const ExportPlan& plan, double seconds)
{
    const bool isDone = outcome.remains == ExportOutcome::Remains::Everything;
    const bool isUnknown = outcome.remains == ExportOutcome::Remains::Unknown;
    const bool isCancelled = outcome.error && outcome.error->Is(Code::Cancelled);
    m_written->setVisible(isDone);
    m_duration->setVisible(isDone);
    m_details->setVisible(!isDone);
    m_headline->setText(isDone        ? tr("The export is done. It is run number %1.").arg(outcome.run)
                        : isUnknown   ? tr("It is not known whether the export is in the database.")
                        : isCancelled ? tr("The export was cancelled.")
                                      : tr("The export failed."));
    if (isDone) {
        ShowRows(outcome, plan, seconds);
    } else {
        m_details->setPlainText(Details(outcome, plan));
    }
}

void ExportSummaryPage::ShowRows(const ExportOutcome& outcome, const ExportPlan& plan, double seconds)
{
    const auto wanted = plan.Wanted();
    qlonglong sum = 0;
    m_written->setRowCount(static_cast<int>(wanted.size()));
    int row = 0;
    for (const auto table : wanted) {
        const auto rows = static_cast<qlonglong>(outcome.rows[table]);
        sum += rows;
        SetExportCell(m_written, row, 0, QString::fromStdString(CaptionOf(table)));
        SetExportCell(m_written, row, 1, PlainText(plan.tables[table].name));
        SetExportCell(m_written, row++, 2, locale().toString(rows), true);
    }
    m_written->resizeColumnToContents(0);
    m_written->setCurrentCell(0, 0);
    m_duration->setText(
        tr("%1 rows in %2 s").arg(locale().toString(sum), locale().toString(seconds, 'f', 1)));
}

QString ExportSummaryPage::Details(const ExportOutcome& outcome, const ExportPlan& plan) const
{
    QStringList lines;
    if (outcome.error && !outcome.error->Is(Code::Cancelled))
        lines.append(PlainLines(outcome.error->description));
    if (outcome.remains == ExportOutcome::Remains::Unknown) {
        lines.append(
            tr("The database went away just when it was to keep the rows. Look whether the newest run "
               "is in table %1.")
                .arg(PlainText(plan.tables[ExportTable::Runs].name)));
    } else if (outcome.remains == ExportOutcome::Remains::Pending) {
        lines.append(tr("Everything is undone as soon as the database answers."));
    } else if (outcome.madeTables.empty()) {
        lines.append(tr("Everything was undone; the database is as it was before."));
    } else {
        QStringList names;
        for (const auto& name : outcome.madeTables) names.append(PlainText(name));
        lines.append(tr("All rows were undone. These new tables stayed, empty: %1")
                         .arg(names.join(QStringLiteral(", "))));
    }
    return lines.join(QStringLiteral("\n\n"));
}
