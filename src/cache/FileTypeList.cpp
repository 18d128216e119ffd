#include "cache/FileTypeList.h"

#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "controls/ActivePanel.h"
#include "controls/CellDelegate.h"
#include "controls/PlainMarkup.h"
#include "controls/PlainText.h"
#include "controls/modSystemImageList.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr double kHeaderTwips = 285;
constexpr int kLeastExtensionWidth = 5;  // in characters, beside the icon
const char* const kWidestCells[] = {nullptr, "00000", "000.00 MiB", "000.00 MiB", "00.00%"};

}  // namespace

FileTypeList::FileTypeList(ActivePanel& panel, const Desktop& desktop, FormatLocale locale)
    : QTreeView(&panel.Surface()),
      m_panel(panel),
      m_desktop(desktop),
      m_model(std::move(locale))
{
    setObjectName(QStringLiteral("lstFileTypes"));
    setAccessibleName(tr("File types"));
    setAccessibleDescription(tr("Ctrl+1 to Ctrl+5 sort by a column, pressed again the other way round."));
    setWhatsThis(accessibleDescription());
    setModel(&m_model);
    setItemDelegate(new CellDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideRight);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setFrameShape(QFrame::NoFrame);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(true);
    SizeColumns();
    ShowOrder();
    connect(header(), &QHeaderView::sectionClicked, this, &FileTypeList::ColumnClick);

    m_panel.SetAutoScroll(false);
    m_panel.SetShowScrollBars(false);
    connect(&m_panel, &ActivePanel::Resize, this, &FileTypeList::FitPanel);
    FitPanel();
}

void FileTypeList::FillFileTypes(const FileTypeTable& types)
{
    m_model.Fill(types);
    ShowOrder();
}

void FileTypeList::Clear()
{
    m_model.Clear();
}

void FileTypeList::ColumnClick(int column)
{
    CWaitCursor wait(m_desktop.pointer);
    wait.ShowCursor(ScreenPointer::Hourglass);
    m_desktop.pump.Run();
    m_model.Click(static_cast<FileTypeColumn>(column));
    ShowOrder();
}

void FileTypeList::ShowOrder()
{
    const bool isUp = m_model.Rows().SortOrder() == FileTypeRows::Order::Ascending;
    header()->setSortIndicator(m_model.Rows().SortedColumn(),
                               isUp ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void FileTypeList::FitPanel()
{
    const double height = std::max(0.0, m_panel.ScaleHeight() - kHeaderTwips);
    m_panel.Place(*this, {0, kHeaderTwips, m_panel.ScaleWidth(), height});
}

// The types take the room that the other columns leave.
void FileTypeList::SizeColumns()
{
    const auto metrics = fontMetrics();
    const int margin = 2 * metrics.averageCharWidth();
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    header()->setMinimumSectionSize(icon + margin + kLeastExtensionWidth * metrics.averageCharWidth());
    for (int column = 1; column < kFileTypeColumns; ++column) {
        const int cell = margin + metrics.horizontalAdvance(QLatin1String(kWidestCells[column]));
        setColumnWidth(column, std::max(cell, header()->sectionSizeHint(column)));
    }
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

void FileTypeList::changeEvent(QEvent* event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange) SizeColumns();
}

void FileTypeList::keyPressEvent(QKeyEvent* event)
{
    const int column = event->key() - Qt::Key_1;
    const bool sorts = event->modifiers() == Qt::ControlModifier && column >= 0 && column < kFileTypeColumns;
    if (sorts) return ColumnClick(column);
    QTreeView::keyPressEvent(event);
}

// A row's icon is looked up when it is first seen: a server may have thousands of types.
void FileTypeList::paintEvent(QPaintEvent* event)
{
    for (auto row = indexAt({0, 0}); row.isValid() && visualRect(row).top() < viewport()->height();
         row = indexBelow(row))
        if (!m_model.HasIcon(row.row())) SetFileTypeIcon(row.row());
    QTreeView::paintEvent(event);
}

void FileTypeList::SetFileTypeIcon(int row)
{
    const auto name = u'.' + PlainText(m_model.Rows()[static_cast<std::size_t>(row)][0]);
    const int image = m_desktop.icons.IconIndex(name, modSystemImageList::Small);
    modSystemImageList::SetItem(*this, {row, image});
}

bool FileTypeList::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowElided(*static_cast<QHelpEvent*>(event));
    return true;
}

// A text that its column has no room for is told in full by a tool tip.
void FileTypeList::ShowElided(const QHelpEvent& event)
{
    const auto index = indexAt(event.pos());
    const auto place = visualRect(index);
    if (!index.isValid() || sizeHintForIndex(index).width() <= place.width()) return QToolTip::hideText();
    const auto text = PlainMarkup(index.data(Qt::DisplayRole).toString());
    QToolTip::showText(event.globalPos(), text, viewport(), place);
}
