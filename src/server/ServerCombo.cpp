#include "server/ServerCombo.h"

#include "controls/Images.h"
#include "controls/PlainText.h"
#include "server/ServerChoices.h"
#include "controls/PlainMarkup.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

namespace {

constexpr int kLongestName = 1024;      // characters
constexpr int kLeastCharacters = 28;    // that the box has room for
constexpr int kMostVisible = 15;        // entries of the open list
constexpr int kLongestWithoutTip = 40;  // characters that surely fit

bool IsEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool IsWalk(const QKeyEvent& event)
{
    const auto key = event.key();
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

ServerCombo::ServerCombo(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(kMostVisible);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kLeastCharacters);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    lineEdit()->setMaxLength(kLongestName);
    view()->setTextElideMode(Qt::ElideMiddle);
    connect(lineEdit(), &QLineEdit::textEdited, this, &ServerCombo::Edited);
    connect(this, &QComboBox::activated, this, &ServerCombo::Picked);
}

void ServerCombo::Offer(std::span<const ServerChoice> servers, int selected)
{
    clear();
    for (const auto& server : servers) {
        const auto name = PlainText(server.name);
        addItem(Image(server.isLocal ? QStringLiteral("Local") : QStringLiteral("Remote")), name);
        if (name.size() > kLongestWithoutTip) setItemData(count() - 1, PlainMarkup(name), Qt::ToolTipRole);
    }
    setCurrentIndex(selected);
    ShowName(currentText());
}

void ServerCombo::ShowName(const QString& plain)
{
    if (plain != lineEdit()->text()) setEditText(plain);
    // Ready to be typed over, and with its front in view, which says more than the end of a long name.
    const auto length = static_cast<int>(lineEdit()->text().size());
    lineEdit()->setSelection(length, -length);
}

// The keys that go through a closed list open it instead, since each entry picked is connected at once.
void ServerCombo::keyPressEvent(QKeyEvent* event)
{
    if (IsEnter(*event)) {
        event->setAccepted(!(event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier)));
        if (event->isAccepted()) Q_EMIT Entered();
        return;
    }
    if (IsWalk(*event)) return showPopup();
    QComboBox::keyPressEvent(event);
}

void ServerCombo::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void ServerCombo::focusOutEvent(QFocusEvent* event)
{
    {
        // At the end of editing the base class would pick an entry that is called like the text.
        const QSignalBlocker blocker(lineEdit());
        QComboBox::focusOutEvent(event);
    }
    const auto reason = event->reason();
    const bool stays = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                       reason == Qt::MenuBarFocusReason;
    if (!stays) Q_EMIT Left(reason);
}
