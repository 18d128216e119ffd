#include "cache/CacheTreeView.h"

#include "controls/CellDelegate.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int kLeastTextCharacters = 40;  // that fit beside the indentation of any row

}  // namespace

CacheTreeView::CacheTreeView(QWidget* parent) : QTreeView(parent)
{
    setItemDelegate(new CellDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAnimated(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideRight);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);

    connect(this, &QTreeView::doubleClicked, this, [this] { Q_EMIT DetailsWanted(false); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &CacheTreeView::WidenColumn);
}

void CacheTreeView::reset()
{
    QTreeView::reset();
    m_widestIndentation = 0;
}

void CacheTreeView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const auto row = byKey ? currentIndex() : indexAt(event->pos());
    if (!row.isValid()) return;
    setCurrentIndex(row);
    if (!byKey) {
        Q_EMIT MenuWanted(event->globalPos());
        return;
    }
    scrollTo(row);
    const auto seen = visualRect(row) & viewport()->rect();
    Q_EMIT MenuWanted(viewport()->mapToGlobal(seen.center()));
}

void CacheTreeView::keyPressEvent(QKeyEvent* event)
{
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier;
    const auto tell = [&](auto signal) {
        event->accept();
        if (!event->isAutoRepeat()) signal();
    };
    switch (event->key()) {
    case Qt::Key_F7: tell([&] { Q_EMIT DetailsWanted(modifiers.testFlag(Qt::ControlModifier)); }); return;
    case Qt::Key_F8:
    case Qt::Key_Delete:
        if (isPlain) {
            tell([this] { Q_EMIT RemovalWanted(); });
            return;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isPlain) tell([this] { Q_EMIT EnterPressed(); });
        break;
    default: break;
    }
    QTreeView::keyPressEvent(event);
}

void CacheTreeView::updateGeometries()
{
    QTreeView::updateGeometries();
    WidenColumn();
}

// The column is as wide as the window, so that long texts are elided, but leaves some room for the text of
// the deepest row that was shown; then the view scrolls sideways.
void CacheTreeView::WidenColumn()
{
    const int bottom = viewport()->height();
    for (auto row = indexAt({0, 0}); row.isValid(); row = indexBelow(row)) {
        const auto place = visualRect(row);
        if (place.top() > bottom) break;
        m_widestIndentation = std::max(m_widestIndentation, place.left() + horizontalOffset());
    }
    const int text = kLeastTextCharacters * fontMetrics().averageCharWidth();
    const int width = std::max(viewport()->width(), m_widestIndentation + text);
    if (header()->sectionSize(0) != width) header()->resizeSection(0, width);
}
