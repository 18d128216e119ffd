#include "server/SiteListView.h"

#include "server/SiteListModel.h"
#include "controls/PlainMarkup.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace {

constexpr int kDark = 128;  // lightness below which a background counts as dark

// Styles take the frame of a check mark from the colour of windows, which cannot be told from a dark list.
class SiteDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        auto& palette = option->palette;
        if (palette.color(QPalette::Base).lightness() >= kDark) return;
        palette.setColor(QPalette::Window, palette.color(QPalette::Text).darker());
    }
};

}  // namespace

SiteListView::SiteListView(SiteListModel& sites, QWidget* parent) : QTreeView(parent), m_sites(sites)
{
    setModel(&sites);
    setItemDelegate(new SiteDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setTextElideMode(Qt::ElideRight);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(true);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
}

void SiteListView::ShowWhenEmpty(const QString& plain)
{
    m_whenEmpty = plain;
    viewport()->update();
}

void SiteListView::ToggleHighlighted()
{
    const auto highlighted = selectionModel()->selectedRows();
    for (const auto& row : highlighted) m_sites.Check(row, !m_sites.IsChecked(row));
}

// The space bar turns the current row's mark; the other highlighted rows follow it.
void SiteListView::CheckHighlighted()
{
    const auto current = currentIndex();
    if (!current.isValid()) return;
    const bool isChecked = !m_sites.IsChecked(current);
    m_sites.Check(current, isChecked);
    if (!selectionModel()->isRowSelected(current.row(), {})) return;
    const auto highlighted = selectionModel()->selectedRows();
    for (const auto& row : highlighted) m_sites.Check(row, isChecked);
}

void SiteListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) return CheckHighlighted();
    QTreeView::keyPressEvent(event);
}

// On the mark itself a double click is two clicks, each of which turned it already.
void SiteListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton || IsOnMark(event->pos())) return;
    const auto current = currentIndex();
    if (selectionModel()->isRowSelected(current.row(), {}))
        m_sites.Check(current, !m_sites.IsChecked(current));
}

bool SiteListView::IsOnMark(const QPoint& place) const
{
    const auto index = indexAt(place);
    if (!index.isValid() || index.column() != static_cast<int>(SiteColumn::Name)) return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(place);
}

void SiteListView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_sites.rowCount() > 0 || m_whenEmpty.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = 2 * fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_whenEmpty);
}

bool SiteListView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    ShowElided(*static_cast<QHelpEvent*>(event));
    return true;
}

// A text that the column has no room for is told in full by a tool tip.
void SiteListView::ShowElided(const QHelpEvent& event)
{
    const auto index = indexAt(event.pos());
    const auto place = visualRect(index);
    if (!index.isValid() || sizeHintForIndex(index).width() <= place.width()) return QToolTip::hideText();
    const auto text = index.data(Qt::DisplayRole).toString();
    QToolTip::showText(event.globalPos(), PlainMarkup(text), viewport(), place);
}
