#include "stats/ToolTip.h"

#include "controls/PlainText.h"
#include "controls/SystemColors.h"
#include "stats/Balloon.h"
#include "stats/WrapTipText.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QStyle>

#include <utility>

namespace {

QIcon IconOf(std::uint32_t icon)
{
    const auto* const style = QApplication::style();
    switch (icon) {
    case ToolTip::Information: return style->standardIcon(QStyle::SP_MessageBoxInformation);
    case ToolTip::Warning: return style->standardIcon(QStyle::SP_MessageBoxWarning);
    case ToolTip::Error: return style->standardIcon(QStyle::SP_MessageBoxCritical);
    default: return {};
    }
}

QColor ColorOf(std::uint32_t oleColor, const QWidget& widget)
{
    return oleColor == 0 ? QColor() : SystemColor(oleColor, widget.palette());
}

// The text in one line, for those who hear it.
QString Spoken(const QString& title, QString text)
{
    text.replace(QStringLiteral(" \n"), QStringLiteral(" ")).replace(u'\n', u' ');
    if (title.isEmpty() || text.isEmpty()) return title + text;
    return title + QStringLiteral(". ") + text;
}

bool EndsTip(QEvent::Type type)
{
    switch (type) {
    case QEvent::Leave:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::WindowDeactivate: return true;
    default: return false;
    }
}

// Shift and F1, which usually explains, may be a command of the window.
bool IsTipKey(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::ControlModifier;
}

}  // namespace

ToolTip::ToolTip()
{
    m_time.setSingleShot(true);
    connect(&m_time, &QTimer::timeout, this, &ToolTip::Hide);
}

ToolTip::~ToolTip()
{
    Destroy();
}

void ToolTip::SetEnabled(bool isEnabled)
{
    m_isEnabled = isEnabled;
    if (!isEnabled) Hide();
}

void ToolTip::SetParentControl(QWidget* control)
{
    m_control = control;
}

void ToolTip::SetIcon(std::uint32_t icon)
{
    m_icon = icon;
    Refresh();
}

void ToolTip::SetForeColor(std::uint32_t color)
{
    m_foreColor = color;
    Refresh();
}

void ToolTip::SetBackColor(std::uint32_t color)
{
    m_backColor = color;
    Refresh();
}

void ToolTip::SetTitle(std::string title)
{
    m_title = std::move(title);
    Refresh();
}

void ToolTip::SetTipText(std::string_view text)
{
    m_text = WrapTipText(text);
    Refresh();
}

void ToolTip::Create()
{
    Destroy();
    if (m_control == nullptr) return;
    m_bound = m_control;
    m_createdStyle = m_style;
    m_bound->installEventFilter(this);
    Describe();
}

void ToolTip::Destroy()
{
    m_time.stop();
    const std::unique_ptr<Balloon> ended(m_balloon);
    if (m_bound == nullptr) return;
    m_bound->removeEventFilter(this);
    m_bound->setWhatsThis({});
    m_bound->setAccessibleDescription({});
    m_bound = nullptr;
}

bool ToolTip::IsShown() const
{
    return m_balloon != nullptr && m_balloon->isVisible();
}

void ToolTip::Describe()
{
    const auto title = PlainText(m_title);
    const auto text = PlainLines(m_text);
    m_bound->setAccessibleDescription(Spoken(title, text));
    auto lines = text.toHtmlEscaped();
    lines.replace(u'\n', QStringLiteral("<br>"));
    m_bound->setWhatsThis(QStringLiteral("<p><b>%1</b></p><p>%2</p>").arg(title.toHtmlEscaped(), lines));
}

void ToolTip::Refresh()
{
    if (m_bound == nullptr) return;
    Describe();
    if (IsShown()) FillBalloon();
}

void ToolTip::FillBalloon()
{
    Balloon::Content content;
    content.isBalloon = m_createdStyle == BalloonStyle;
    content.icon = IconOf(m_icon);
    content.title = PlainText(m_title);
    content.text = PlainLines(m_text);
    content.foreColor = ColorOf(m_foreColor, *m_bound);
    content.backColor = ColorOf(m_backColor, *m_bound);
    m_balloon->Show(content);
}

void ToolTip::PopUp(const QPoint& globalPointer)
{
    if (m_title.empty() && m_text.empty()) return;
    if (m_balloon == nullptr) m_balloon = new Balloon(m_bound);
    FillBalloon();
    const auto below = m_bound->mapToGlobal(QPoint(m_bound->width() / 2, m_bound->height()));
    m_balloon->PopUpAt(m_isCentered ? below : globalPointer, m_isCentered);
    m_time.start(kMostTime);
}

void ToolTip::Hide()
{
    m_time.stop();
    if (m_balloon) m_balloon->hide();
}

bool ToolTip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_bound) return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::ToolTip && m_isEnabled) {
        if (!IsShown()) PopUp(static_cast<QHelpEvent*>(event)->globalPos());
        return true;
    }
    if (IsTipKey(*event) && m_isEnabled) {
        PopUp(m_bound->mapToGlobal(m_bound->rect().center()));
        return true;
    }
    if (EndsTip(event->type())) Hide();
    return QObject::eventFilter(watched, event);
}
