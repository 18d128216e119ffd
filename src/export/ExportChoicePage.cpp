#include "export/ExportChoicePage.h"

#include "controls/PlainLabel.h"
#include "export/ExportRows.h"

#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const char* NameOf(ExportTable table)
{
    switch (table) {
    case ExportTable::Sites: return "chkSites";
    case ExportTable::Entries: return "chkEntries";
    case ExportTable::Types: return "chkTypes";
    case ExportTable::Totals: return "chkTotals";
    case ExportTable::Counters: return "chkCounters";
    case ExportTable::Runs: break;
    }
    return "chkRuns";
}

}  // namespace

ExportChoicePage::ExportChoicePage(const CacheSnapshot& snapshot, const ExportPlan& plan, QWidget* parent)
    : QWidget(parent),
      m_isScanned(snapshot.ScannedAt() != DateTime())
{
    setObjectName(QStringLiteral("pagChoice"));
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    auto* const scan = new PlainLabel(QStringLiteral("lblScan"), tr("Last scan"), this);
    const auto scannedAt = MomentValue(snapshot.ScannedAt());
    const auto* const time = std::get_if<std::string>(&scannedAt);
    scan->ShowText(m_isScanned ? tr("Last scan: %1, %2")
                                     .arg(QString::fromStdString(DatabaseText(snapshot.Server())),
                                          QString::fromStdString(time == nullptr ? "" : *time))
                                     .toStdString()
                               : tr("Nothing was scanned yet, so there is nothing to export.").toStdString());
    all->addWidget(scan);
    all->addSpacing(fontMetrics().height());
    all->addWidget(new QLabel(tr("Please select what to export:"), this));
    for (const auto table : kExportTables) {
        if (table == ExportTable::Runs) continue;
        const auto rows = locale().toString(static_cast<qlonglong>(RowCount(table, snapshot)));
        auto* const box =
            new QCheckBox(tr("%1 (rows: %2)").arg(QString::fromStdString(CaptionOf(table)), rows), this);
        box->setObjectName(QLatin1String(NameOf(table)));
        box->setChecked(plan.tables[table].isWanted);
        box->setEnabled(m_isScanned);
        connect(box, &QCheckBox::toggled, this, &ExportChoicePage::Changed);
        all->addWidget(box);
        m_boxes.emplace_back(table, box);
    }
    all->addStretch();
    setFocusProxy(m_boxes.front().second);
}

bool ExportChoicePage::IsComplete() const
{
    return m_isScanned && std::any_of(m_boxes.begin(), m_boxes.end(),
                                      [](const auto& box) { return box.second->isChecked(); });
}

void ExportChoicePage::Apply(ExportPlan& plan) const
{
    for (const auto& [table, box] : m_boxes) plan.tables[table].isWanted = box->isChecked();
}
