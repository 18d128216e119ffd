#include "ops/LevelList.h"

#include "controls/CellDelegate.h"
#include "ops/ReadableColors.h"

#include <QEvent>
#include <QHeaderView>
#include <QSignalBlocker>

namespace {

constexpr int kKey = Qt::UserRole;
constexpr int kColumns = 3;

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

}  // namespace

LevelList::LevelList(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderLabels({tr("Level"), tr("Comp Size  "), tr("CPU Time  ")});
    setItemDelegate(new CellDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // all columns always fit
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(kColumns - 1, QHeaderView::Stretch);  // never wider than the list
    for (int column = 1; column < kColumns; ++column)
        headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    connect(this, &QTreeWidget::itemChanged, this, &LevelList::ShowMarks);
}

void LevelList::Fill(int level, const FormatLocale& locale)
{
    clear();
    m_marked = QStringLiteral("C%1").arg(level);
    for (int each = kFirstLevel; each <= kLastLevel; ++each) {
        const auto texts = RowOfLevel(each, {}, locale);
        auto* const row = new QTreeWidgetItem({Text(texts.level), Text(texts.size), Text(texts.time)});
        row->setData(0, kKey, Text(texts.key));
        row->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable |
                      Qt::ItemNeverHasChildren);
        row->setCheckState(0, Qt::Unchecked);
        for (int column = 1; column < kColumns; ++column)
            row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        addTopLevelItem(row);
    }
    ShowMarks();
    FitColumns();
    if (auto* const marked = RowWithKey(m_marked)) setCurrentItem(marked, 0, QItemSelectionModel::NoUpdate);
}

QTreeWidgetItem* LevelList::RowWithKey(const QString& key) const
{
    for (int row = 0; row < topLevelItemCount(); ++row)
        if (topLevelItem(row)->data(0, kKey).toString() == key) return topLevelItem(row);
    return nullptr;
}

void LevelList::ShowRow(const LevelRow& row)
{
    auto* const item = RowWithKey(Text(row.key));
    if (item == nullptr) return;
    const QSignalBlocker quiet(this);
    item->setText(1, Text(row.size));
    item->setText(2, Text(row.time));
    viewport()->update();
}

void LevelList::ShowMarks()
{
    const QSignalBlocker quiet(this);
    const auto color = MarkedLevelColor(palette());
    for (int row = 0; row < topLevelItemCount(); ++row) {
        auto* const item = topLevelItem(row);
        const bool isMarked = item->data(0, kKey).toString() == m_marked;
        item->setCheckState(0, isMarked ? Qt::Checked : Qt::Unchecked);
        for (int column = 0; isMarked && column < kColumns; ++column) {
            auto bold = font();
            bold.setBold(true);
            item->setFont(column, bold);
            item->setForeground(column, color);
        }
    }
    viewport()->update();
}

void LevelList::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) ShowMarks();
    if (event->type() == QEvent::FontChange) FitColumns();
}

int LevelList::ColumnWidth(int column) const
{
    auto bold = font();
    bold.setBold(true);
    const int margin = 3 * fontMetrics().averageCharWidth();
    const int figures = QFontMetrics(bold).horizontalAdvance(QStringLiteral("1000.00 KiB")) + margin;
    return std::max(header()->sectionSizeHint(column), column == 0 ? sizeHintForColumn(0) + margin : figures);
}

void LevelList::FitColumns()
{
    for (int column = 0; column < kColumns; ++column) header()->resizeSection(column, ColumnWidth(column));
    updateGeometry();
}

QSize LevelList::sizeHint() const
{
    int width = 0;
    for (int column = 0; column < kColumns; ++column) width += ColumnWidth(column);
    const int rowHeight = std::max(sizeHintForRow(0), fontMetrics().height());
    const int height = header()->sizeHint().height() + kLastLevel * rowHeight;
    const int frame = 2 * (frameWidth() + 1);
    return {width + frame, height + frame};
}
