#include "export/ExportPreviewPage.h"

#include "controls/PlainText.h"
#include "export/ExportGrid.h"
#include "export/ExportPreview.h"
#include "export/ExportRows.h"

#include <QLabel>
#include <QLocale>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr std::size_t kMostRows = 20;
constexpr int kWidestColumn = 32;  // at first, in average characters
constexpr int kSqlLines = 5;

void FitColumns(QTableWidget* grid)
{
    grid->resizeColumnsToContents();
    const int widest = kWidestColumn * grid->fontMetrics().averageCharWidth();
    for (int column = 0; column < grid->columnCount(); ++column)
        if (grid->columnWidth(column) > widest) grid->setColumnWidth(column, widest);
}

QTableWidget* TablesGrid(const QString& meaning, const QStringList& captions, QWidget* parent)
{
    auto* const grid = ExportGrid("grdTables", meaning, parent);
    grid->setColumnCount(static_cast<int>(captions.size()));
    grid->setHorizontalHeaderLabels(captions);
    grid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    const int row = grid->verticalHeader()->defaultSectionSize();
    grid->setFixedHeight(row * static_cast<int>(kExportTables.size()) +
                         grid->horizontalHeader()->sizeHint().height() + 2 * grid->frameWidth());
    return grid;
}

}  // namespace

ExportPreviewPage::ExportPreviewPage(const CacheSnapshot& snapshot, QWidget* parent)
    : QWidget(parent),
      m_snapshot(snapshot),
      m_tables(TablesGrid(tr("Tables"), {tr("What"), tr("Table"), tr("Rows")}, this)),
      m_rows(ExportGrid("grdRows", tr("First rows"), this)),
      m_sql(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("pagPreview"));
    m_sql->setObjectName(QStringLiteral("txtSql"));
    m_sql->setAccessibleName(tr("SQL"));
    m_sql->setReadOnly(true);
    m_sql->setTabChangesFocus(true);
    m_sql->setFixedHeight(kSqlLines * fontMetrics().lineSpacing() + 2 * m_sql->frameWidth());

    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(Heading(tr("These rows are going to be &written:"), m_tables));
    all->addWidget(m_tables);
    all->addWidget(Heading(tr("The first &rows of the selected table:"), m_rows));
    all->addWidget(m_rows, 1);
    all->addWidget(Heading(tr("Its &SQL:"), m_sql));
    all->addWidget(m_sql);
    setFocusProxy(m_tables);
    connect(m_tables, &QTableWidget::currentCellChanged, this, &ExportPreviewPage::ShowTable);
}

QLabel* ExportPreviewPage::Heading(const QString& text, QWidget* of)
{
    auto* const heading = new QLabel(text, this);
    heading->setBuddy(of);
    return heading;
}

void ExportPreviewPage::ShowPlan(const ExportPlan& plan, const ExportStamp& stamp)
{
    m_plan = plan;
    m_stamp = stamp;
    m_wanted = plan.Wanted();
    {
        const QSignalBlocker quiet(m_tables);
        m_tables->setRowCount(static_cast<int>(m_wanted.size()));
        int row = 0;
        for (const auto table : m_wanted) {
            SetExportCell(m_tables, row, 0, QString::fromStdString(CaptionOf(table)));
            SetExportCell(m_tables, row, 1, PlainText(plan.tables[table].name));
            const auto rows = static_cast<qlonglong>(RowCount(table, m_snapshot));
            SetExportCell(m_tables, row++, 2, locale().toString(rows), true);
        }
        m_tables->resizeColumnToContents(0);
        m_tables->setCurrentCell(0, 0);
    }
    ShowTable(0);
}

void ExportPreviewPage::ShowTable(int row)
{
    if (row < 0 || row >= static_cast<int>(m_wanted.size())) return;
    const auto preview =
        PreviewOf(m_wanted[static_cast<std::size_t>(row)], m_plan, m_stamp, m_snapshot, kMostRows);
    QStringList captions;
    for (const auto& column : preview.columns) captions.append(QString::fromStdString(column));
    m_rows->clear();
    m_rows->setColumnCount(static_cast<int>(captions.size()));
    m_rows->setHorizontalHeaderLabels(captions);
    m_rows->setRowCount(static_cast<int>(preview.rows.size()));
    for (std::size_t i = 0; i < preview.rows.size(); ++i)
        for (std::size_t column = 0; column < preview.rows[i].size(); ++column)
            SetExportCell(m_rows, static_cast<int>(i), static_cast<int>(column),
                          PlainText(preview.rows[i][column]));
    FitColumns(m_rows);
    m_sql->setPlainText(PlainLines(preview.sql));
}
