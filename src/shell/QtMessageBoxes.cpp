#include "shell/QtMessageBoxes.h"

#include "controls/PlainText.h"
#include "shell/BoxStyles.h"

#include <QApplication>
#include <QMessageBox>

#include <algorithm>

namespace {

constexpr unsigned kIconBits = 0xF0;

QMessageBox::Icon IconOf(BoxStyle style)
{
    switch (static_cast<BoxStyle>(static_cast<unsigned>(style) & kIconBits)) {
    case BoxStyle::Critical: return QMessageBox::Critical;
    case BoxStyle::Question: return QMessageBox::Question;
    case BoxStyle::Exclamation: return QMessageBox::Warning;
    case BoxStyle::Information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

QWidget* WindowInUse()
{
    if (auto* const modal = QApplication::activeModalWidget()) return modal;
    if (auto* const active = QApplication::activeWindow()) return active;
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return found == windows.end() ? nullptr : *found;
}

}  // namespace

BoxAnswer QtMessageBoxes::Show(const std::string& text, BoxStyle style, const std::string& title)
{
    QMessageBox box(WindowInUse());
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(PlainText(title));
    box.setText(PlainLines(text));
    box.setIcon(IconOf(style));
    box.setStandardButtons(Asks(style) ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (Asks(style)) {
        box.setDefaultButton(QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    }
    CWaitCursor usual(m_pointer);
    usual.ShowCursor(ScreenPointer::Default);
    const int answer = box.exec();
    if (!Asks(style)) return BoxAnswer::Ok;
    return answer == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}
