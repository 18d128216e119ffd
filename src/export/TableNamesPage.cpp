#include "export/TableNamesPage.h"

#include "controls/PlainText.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const char* NameOf(ExportTable table)
{
    switch (table) {
    case ExportTable::Runs: return "txtRuns";
    case ExportTable::Sites: return "txtSites";
    case ExportTable::Entries: return "txtEntries";
    case ExportTable::Types: return "txtTypes";
    case ExportTable::Totals: return "txtTotals";
    case ExportTable::Counters: break;
    }
    return "txtCounters";
}

}  // namespace

TableNamesPage::TableNamesPage(const ExportPlan& plan, QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pagTables"));
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    auto* const heading = new QLabel(
        tr("Please name the tables. Those that are missing are made; each export adds its rows."), this);
    heading->setWordWrap(true);
    all->addWidget(heading);
    all->addSpacing(fontMetrics().height() / 2);
    auto* const grid = new QGridLayout;
    int row = 0;
    for (const auto table : kExportTables) {
        auto* const box = new QLineEdit(PlainText(plan.tables[table].name), this);
        box->setObjectName(QLatin1String(NameOf(table)));
        box->setMaxLength(static_cast<int>(ExportPlan::kMostName));
        auto* const label = new QLabel(tr("%1:").arg(QString::fromStdString(CaptionOf(table))), this);
        label->setBuddy(box);
        box->setAccessibleName(tr("Table for: %1").arg(QString::fromStdString(CaptionOf(table))));
        grid->addWidget(label, row, 0);
        grid->addWidget(box, row++, 1);
        m_labels[table] = label;
        m_boxes[table] = box;
    }
    all->addLayout(grid);
    all->addStretch();
    setFocusProxy(m_boxes[ExportTable::Runs]);
}

void TableNamesPage::ShowWanted(const ExportPlan& plan)
{
    const auto wanted = plan.Wanted();
    for (const auto table : kExportTables) {
        const bool isWanted = std::find(wanted.begin(), wanted.end(), table) != wanted.end();
        m_labels[table]->setEnabled(isWanted);
        m_boxes[table]->setEnabled(isWanted);
    }
}

void TableNamesPage::Apply(ExportPlan& plan) const
{
    for (const auto table : kExportTables) plan.tables[table].name = m_boxes[table]->text().toStdString();
}

void TableNamesPage::Select(ExportTable table)
{
    m_boxes[table]->setFocus();
    m_boxes[table]->selectAll();
}
