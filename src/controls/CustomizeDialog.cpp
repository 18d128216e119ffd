#include "controls/CustomizeDialog.h"

#include "controls/CustomToolBar.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace {

// In characters:
constexpr int kListWidth = 26;
constexpr int kListHeight = 12;
constexpr int kListRows = 9;  // of the toolbar that are seen at once, however large the pictures are

// What is dragged; a drag of another program is none of these.
struct DraggedItem : QMimeData {
    DraggedItem(const ToolbarItemList* list, int itsRow) : from(list), row(itsRow) {}

    const ToolbarItemList* const from;
    const int row;
};

// Draws the picture of a chosen item in the colour of its text: its own colours may be the highlight's.
class ItemDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!option->state.testFlag(QStyle::State_Selected)) return;
        auto picture = option->icon.pixmap(option->decorationSize, option->widget->devicePixelRatioF());
        const bool isActive = option->state.testFlag(QStyle::State_Active);
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(),
                         option->palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                               QPalette::HighlightedText));
        painter.end();
        option->icon.addPixmap(picture, QIcon::Selected);
    }
};

}  // namespace

// ---- ToolbarItemList

ToolbarItemList::ToolbarItemList(const QString& objectName)
{
    setObjectName(objectName);
    setDragDropMode(QAbstractItemView::DragDrop);
    setItemDelegate(new ItemDelegate(this));
    setMinimumSize(fontMetrics().averageCharWidth() * kListWidth, fontMetrics().height() * kListHeight);
}

QStringList ToolbarItemList::mimeTypes() const
{
    return {QStringLiteral("application/x-toolbar-item")};
}

QMimeData* ToolbarItemList::mimeData(const QList<QListWidgetItem*>& items) const
{
    auto* const dragged = new DraggedItem(this, items.isEmpty() ? -1 : row(items.first()));
    dragged->setData(mimeTypes().first(), {});
    return dragged;
}

// A copy in the eyes of the list that the item comes from: who listens moves it, once the drag is over.
void ToolbarItemList::dropEvent(QDropEvent* event)
{
    const auto* const dragged = dynamic_cast<const DraggedItem*>(event->mimeData());
    if (dragged == nullptr) return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();  // takes the mark away
    const auto tell = [this, from = dragged->from, row = dragged->row,
                       before = RowAt(event->position().toPoint())] { Q_EMIT Dropped(from, row, before); };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

int ToolbarItemList::RowAt(const QPoint& point) const
{
    const auto index = indexAt(point);
    if (!index.isValid()) return count();
    return index.row() + (point.y() < visualRect(index).center().y() ? 0 : 1);
}

// ---- how the dialog is made

CustomizeDialog::CustomizeDialog(CustomToolBar& bar)
    : QDialog(&bar),
      m_bar(bar),
      m_available(new ToolbarItemList(QStringLiteral("lstAvailable"))),
      m_current(new ToolbarItemList(QStringLiteral("lstCurrent")))
{
    setObjectName(QStringLiteral("CustomizeDialog"));
    setWindowTitle(tr("Customize Toolbar"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_available->setDropIndicatorShown(false);  // the order there is fixed
    LayOut();
    ListenToLists();
    connect(&bar, &CustomToolBar::Rearranged, this, &CustomizeDialog::ShowArrangement);
    ShowArrangement();
    m_available->setCurrentRow(0);
    m_current->setCurrentRow(0);
    m_current->setFocus();
    const int rows = kListRows * m_current->sizeHintForRow(0) + 2 * m_current->frameWidth();
    m_current->setMinimumHeight(std::max(m_current->minimumHeight(), rows));
}

void CustomizeDialog::LayOut()
{
    auto* const between = new QVBoxLayout;
    between->addStretch();
    m_cmdAdd = AddCommand(between, "cmdAdd", tr("&Add ->"), [this] { AddChosen(); });
    m_cmdRemove = AddCommand(between, "cmdRemove", tr("<- &Remove"), [this] { RemoveChosen(); });
    between->addStretch();

    auto* const aside = new QVBoxLayout;
    AddCommand(aside, "cmdClose", tr("&Close"), [this] { accept(); })->setDefault(true);
    m_cmdReset = AddCommand(aside, "cmdReset", tr("R&eset"), [this] { Reset(); });
    aside->addStretch();
    m_cmdUp = AddCommand(aside, "cmdMoveUp", tr("Move &Up"), [this] { MoveChosen(-1); });
    m_cmdDown = AddCommand(aside, "cmdMoveDown", tr("Move &Down"), [this] { MoveChosen(1); });

    auto* const all = new QHBoxLayout(this);
    all->addLayout(Labelled(tr("A&vailable toolbar buttons:"), m_available), 1);
    all->addLayout(between);
    all->addLayout(Labelled(tr("Current &toolbar buttons:"), m_current), 1);
    all->addLayout(aside);
}

QLayout* CustomizeDialog::Labelled(const QString& caption, ToolbarItemList* list)
{
    auto* const label = new QLabel(caption);
    label->setObjectName(QStringLiteral("lbl%1").arg(list->objectName().mid(3)));
    label->setBuddy(list);
    list->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
    list->setIconSize(m_bar.iconSize());
    auto* const column = new QVBoxLayout;
    column->addWidget(label);
    column->addWidget(list);
    return column;
}

QPushButton* CustomizeDialog::AddCommand(QBoxLayout* column, const char* name, const QString& caption,
                                         std::function<void()> command)
{
    auto* const button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [run = std::move(command)] { run(); });
    column->addWidget(button);
    return button;
}

void CustomizeDialog::ListenToLists()
{
    const auto add = [this] { AddChosen(); };
    const auto remove = [this] { RemoveChosen(); };
    for (const auto key : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_Enter}) OnKey(m_available, key, add);
    for (const auto key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter}) OnKey(m_current, key, remove);
    OnKey(m_current, Qt::ALT | Qt::Key_Up, [this] { MoveChosen(-1); });
    OnKey(m_current, Qt::ALT | Qt::Key_Down, [this] { MoveChosen(1); });
    connect(m_available, &QListWidget::doubleClicked, this, add);
    connect(m_current, &QListWidget::doubleClicked, this, remove);

    connect(m_current, &ToolbarItemList::Dropped, this,
            [this](const ToolbarItemList* from, int row, int before) {
                if (from == m_available) Add(row, before);
                if (from == m_current) Move(row, before > row ? before - 1 : before);  // it leaves a gap
            });
    connect(m_available, &ToolbarItemList::Dropped, this, [this](const ToolbarItemList* from, int row) {
        if (from == m_current) Remove(row);
    });
    for (const auto* const list : {m_available, m_current})
        connect(list, &QListWidget::currentRowChanged, this, &CustomizeDialog::EnableCommands);
}

void CustomizeDialog::OnKey(QWidget* list, const QKeySequence& key, std::function<void()> command)
{
    auto* const shortcut = new QShortcut(key, list);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, [run = std::move(command)] { run(); });
}

// ---- what the user does

void CustomizeDialog::Change(const std::function<bool(ToolbarLayout&)>& change, int chosenRow)
{
    auto layout = m_bar.Arrangement();
    if (!change(layout)) return;
    m_bar.Arrange(std::move(layout));
    m_current->setCurrentRow(std::min(chosenRow, m_current->count() - 1));
}

void CustomizeDialog::Add(int row, int before)
{
    const auto available = m_bar.Arrangement().Available();
    if (row < 0 || row >= static_cast<int>(available.size())) return;
    const auto& item = available[static_cast<std::size_t>(row)];
    const auto at = static_cast<std::size_t>(before);
    Change([&item, at](ToolbarLayout& layout) { return layout.Insert(item, at); }, before);
}

// A row that there is not becomes a position that there is not, which the layout refuses.
void CustomizeDialog::Remove(int row)
{
    const auto at = static_cast<std::size_t>(row);
    Change([at](ToolbarLayout& layout) { return layout.Remove(at); }, row);
}

void CustomizeDialog::Move(int row, int to)
{
    const auto from = static_cast<std::size_t>(row), place = static_cast<std::size_t>(to);
    Change([from, place](ToolbarLayout& layout) { return layout.Move(from, place); }, to);
}

void CustomizeDialog::Reset()
{
    Change([](ToolbarLayout& layout) { return layout.Reset(), true; }, 0);
}

void CustomizeDialog::AddChosen()
{
    Add(m_available->currentRow(), m_current->currentRow() + 1);
}

void CustomizeDialog::MoveChosen(int down)
{
    Move(m_current->currentRow(), m_current->currentRow() + down);
}

// ---- what the dialog shows

void CustomizeDialog::ShowArrangement()
{
    ShowItems(m_available, m_bar.Arrangement().Available());
    ShowItems(m_current, m_bar.Arrangement().Current());
    EnableCommands();
}

void CustomizeDialog::ShowItems(ToolbarItemList* list, const ToolbarLayout::Items& items)
{
    const QSignalBlocker whileItIsEmpty(list);
    const int chosen = list->currentRow();
    list->clear();
    for (const auto& item : items)
        list->addItem(new QListWidgetItem(m_bar.Picture(item), m_bar.Description(item)));
    list->setCurrentRow(std::min(chosen, list->count() - 1));
}

void CustomizeDialog::EnableCommands()
{
    const int row = m_current->currentRow();
    Enable(m_cmdAdd, m_available->currentRow() >= 0);
    Enable(m_cmdRemove, row >= 0);
    Enable(m_cmdUp, row > 0);
    Enable(m_cmdDown, row >= 0 && row < m_current->count() - 1);
    Enable(m_cmdReset, !m_bar.Arrangement().IsStandard());
}

// The focus of a button that is done goes to the list, not to a button that would undo it.
void CustomizeDialog::Enable(QPushButton* command, bool isEnabled)
{
    if (!isEnabled && command->hasFocus()) m_current->setFocus();
    command->setEnabled(isEnabled);
}
