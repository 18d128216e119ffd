#include "help/HelpKey.h"

#include "help/frmHelp.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace {

const HelpPage* PageAbout(const HelpBook& book, const QWidget* widget)
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const bool isBox = qobject_cast<const QMessageBox*>(widget) != nullptr;
        const auto name = isBox ? std::string("MessageBox") : widget->objectName().toStdString();
        if (const auto* const page = book.PageOf(name)) return page;
    }
    return nullptr;
}

}  // namespace

HelpKey::HelpKey(std::function<frmHelp&()> window, QObject* parent)
    : QObject(parent),
      m_window(std::move(window))
{
    qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return false;
    const auto* const key = static_cast<const QKeyEvent*>(event);
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || !key->matches(QKeySequence::HelpContents)) return false;
    const auto* const page = PageAbout(m_window().Book(), widget);
    if (page == nullptr) return false;
    m_window().ShowPage(page->key);
    return true;
}
