#include "controls/CustomToolBar.h"

#include "controls/CustomizeDialog.h"
#include "controls/Images.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>

#include <utility>

namespace {

QIcon ListImage(const QString& key)
{
    QIcon icon(ImageFile(QStringLiteral("imlButtons/%1").arg(key)));
    icon.addFile(ImageFile(QStringLiteral("imlHotButtons/%1").arg(key)), {}, QIcon::Active);
    return icon;
}

}  // namespace

CustomToolBar::CustomToolBar(const QString& objectName, QWidget* parent) : QToolBar(parent)
{
    setObjectName(objectName);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    if (auto* const more = findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
        more->setToolTip(tr("More buttons"));
        more->setAccessibleName(more->toolTip());
    }
}

CustomToolBar::~CustomToolBar() = default;

void CustomToolBar::SetButtons(const std::vector<ToolbarButton>& standard)
{
    ToolbarLayout::Items items;
    for (const auto& button : standard) {
        items.push_back(button.key.toStdString());
        if (!button.key.isEmpty()) AddButton(button);
    }
    m_layout = ToolbarLayout(std::move(items));
    Rebuild();
}

void CustomToolBar::AddButton(const ToolbarButton& button)
{
    auto* const action = new QAction(ListImage(button.image), button.caption, this);
    action->setObjectName(button.key);
    action->setIconText(button.caption);  // with its blanks, which keep the text off the picture
    action->setToolTip(button.toolTip);
    m_buttons[button.key.toStdString()] = {action, button.description};
    if (!button.entries.empty()) return AddEntries(action, button.entries);
    connect(action, &QAction::triggered, this, [this, key = button.key] { Q_EMIT ButtonClicked(key); });
}

void CustomToolBar::AddEntries(QAction* button, const std::vector<ToolbarEntry>& entries)
{
    auto* const menu = new QMenu(this);
    const auto key = button->objectName();
    menu->setObjectName(QStringLiteral("%1Menu").arg(key));
    for (const auto& entry : entries) {
        auto* const item = menu->addAction(entry.caption);
        item->setObjectName(QStringLiteral("%1(%2)").arg(key, entry.tag));
        connect(item, &QAction::triggered, this,
                [this, key, tag = entry.tag] { Q_EMIT EntryClicked(key, tag); });
    }
    button->setMenu(menu);
}

const CustomToolBar::Made* CustomToolBar::Find(std::string_view item) const
{
    const auto made = m_buttons.find(item);
    return made == m_buttons.end() ? nullptr : &made->second;
}

QAction* CustomToolBar::Button(std::string_view key) const
{
    const auto* const made = Find(key);
    return made == nullptr ? nullptr : made->action;
}

QString CustomToolBar::Description(std::string_view item) const
{
    const auto* const made = Find(item);
    return made == nullptr ? tr("Separator") : made->description;
}

QIcon CustomToolBar::Picture(std::string_view item) const
{
    const auto* const made = Find(item);
    return made == nullptr ? Image(QStringLiteral("imlButtons/Separator")) : made->action->icon();
}

void CustomToolBar::Arrange(ToolbarLayout layout)
{
    m_layout = std::move(layout);
    Rebuild();
    Q_EMIT Rearranged();
}

void CustomToolBar::RestoreLayout(std::span<const std::uint8_t> stored)
{
    auto layout = m_layout;
    layout.Restore(stored);
    Arrange(std::move(layout));
}

void CustomToolBar::Customize()
{
    if (!m_dialog.isNull()) return m_dialog->activateWindow();
    m_dialog = new CustomizeDialog(*this);
    m_dialog->open();
}

void CustomToolBar::Rebuild()
{
    clear();
    m_separators.clear();
    for (const auto& item : m_layout.Current()) {
        const auto* const made = Find(item);
        made == nullptr ? PutSeparatorOn() : PutOn(*made);
    }
}

// The tab key reaches the buttons; a click leaves the focus where it is.
void CustomToolBar::PutOn(const Made& made)
{
    addAction(made.action);
    auto* const button = qobject_cast<QToolButton*>(widgetForAction(made.action));
    button->setObjectName(QStringLiteral("%1Button").arg(made.action->objectName()));
    button->setAccessibleName(made.description);
    button->setFocusPolicy(Qt::TabFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    button->installEventFilter(this);
}

void CustomToolBar::PutSeparatorOn()
{
    auto& separator = m_separators.emplace_back(std::make_unique<QAction>());
    separator->setSeparator(true);
    separator->setObjectName(QStringLiteral("Separator(%1)").arg(m_separators.size() - 1));
    addAction(separator.get());
    widgetForAction(separator.get())->setObjectName(separator->objectName());
}

int CustomToolBar::ButtonHeight() const
{
    QToolButton button;
    button.setFont(font());
    button.setIconSize(iconSize());
    button.setToolButtonStyle(toolButtonStyle());
    button.setAutoRaise(true);
    button.setText(QStringLiteral("X"));
    const auto margins = layout()->contentsMargins();
    return button.sizeHint().height() + margins.top() + margins.bottom();
}

QSize CustomToolBar::minimumSizeHint() const
{
    return QToolBar::minimumSizeHint().expandedTo({0, ButtonHeight()});
}

QSize CustomToolBar::sizeHint() const
{
    return QToolBar::sizeHint().expandedTo({0, ButtonHeight()});
}

void CustomToolBar::mousePressEvent(QMouseEvent* event)
{
    if (!TakesRightPress(*event)) QToolBar::mousePressEvent(event);
}

bool CustomToolBar::TakesRightPress(const QMouseEvent& event)
{
    if (event.button() != Qt::RightButton) return false;
    Q_EMIT MenuWanted(event.globalPosition().toPoint());
    return true;
}

// The mouse's part is done when its button goes down; it would ask for the window's own menu here.
void CustomToolBar::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) Q_EMIT MenuWanted(event->globalPos());
}

// A button would swallow the right mouse button while it is disabled.
bool CustomToolBar::eventFilter(QObject* watched, QEvent* event)
{
    auto* const button = qobject_cast<QToolButton*>(watched);
    bool isTaken = false;
    if (button != nullptr && event->type() == QEvent::MouseButtonPress)
        isTaken = TakesRightPress(*static_cast<QMouseEvent*>(event));
    if (button != nullptr && event->type() == QEvent::KeyPress)
        isTaken = TakesKey(*button, static_cast<QKeyEvent*>(event)->key());
    return isTaken || QToolBar::eventFilter(watched, event);
}

// The keys that a button does not know by itself. What they do may last, so it waits for the event's end.
bool CustomToolBar::TakesKey(QToolButton& button, int key)
{
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        return QMetaObject::invokeMethod(&button, &QToolButton::click, Qt::QueuedConnection);
    if (key == Qt::Key_Down && button.defaultAction()->menu<QMenu*>() != nullptr)
        return QMetaObject::invokeMethod(&button, &QToolButton::showMenu, Qt::QueuedConnection);
    return false;
}
