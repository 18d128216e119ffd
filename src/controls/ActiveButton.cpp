#include "controls/ActiveButton.h"

#include "controls/ControlPainting.h"
#include "controls/PanelAccessibility.h"
#include "controls/StoredLook.h"
#include "controls/SystemColors.h"

#include <QPointer>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace {

bool IsPressKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Space && !event.isAutoRepeat();
}

}  // namespace

ActiveButton::ActiveButton(QWidget* parent) : QWidget(parent)
{
    InstallPanelAccessibility();
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
}

template <class T>
void ActiveButton::Keep(T& field, const T& value, const char* name)
{
    field = value;
    update();
    m_changed.Mark(name);
}

void ActiveButton::SetBackColor(std::uint32_t color)
{
    Keep(m_backColor, color, "BackColor");
}

void ActiveButton::SetActiveBackColor(std::uint32_t color)
{
    Keep(m_activeBackColor, color, "ActiveBackColor");
}

void ActiveButton::SetBorderWidth(int width)
{
    Keep(m_borderWidth, FittingBorder(width, this->width(), height()), "BorderWidth");
}

void ActiveButton::SetImage(const QPixmap& image)
{
    Keep(m_image, image, "Image");
}

void ActiveButton::SetMousePointer(int pointer)
{
    Keep(m_mousePointer, pointer, "MousePointer");
    ShowPointer(*this, m_mousePointer, m_mouseIcon);
}

void ActiveButton::SetMouseIcon(const QPixmap& icon)
{
    Keep(m_mouseIcon, icon, "MouseIcon");
    ShowPointer(*this, m_mousePointer, m_mouseIcon);
}

void ActiveButton::PressOnce()
{
    if (isEnabled()) Q_EMIT Click();
}

void ActiveButton::Load(const PropertyBag& bag)
{
    m_backColor = bag.ReadColor("BackColor", OleColor::ButtonFace);
    m_activeBackColor = bag.ReadColor("ActiveBackColor", OleColor::ButtonFace);
    setEnabled(bag.ReadBool("Enabled", true));
    m_borderWidth = FittingBorder(bag.ReadInt("BorderWidth", 1), width(), height());
    m_image = ReadPicture(bag, "Image");
    m_mouseIcon = ReadPicture(bag, "MouseIcon");
    m_mousePointer = bag.ReadInt("MousePointer", 0);
    ShowPointer(*this, m_mousePointer, m_mouseIcon);
    m_changed.Clear();
    update();
}

void ActiveButton::Save(PropertyBag& bag) const
{
    bag.WriteColor("BackColor", m_backColor, OleColor::ButtonFace);
    bag.WriteColor("ActiveBackColor", m_activeBackColor, OleColor::ButtonFace);
    bag.WriteBool("Enabled", !testAttribute(Qt::WA_ForceDisabled), true);
    bag.WriteInt("BorderWidth", m_borderWidth, 1);
    WritePicture(bag, "Image", m_image);
    WritePicture(bag, "MouseIcon", m_mouseIcon);
    bag.WriteInt("MousePointer", m_mousePointer, 0);
}

void ActiveButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto look = State();
    painter.fillRect(rect(),
                     SystemColor(look == ButtonModel::Normal ? m_backColor : m_activeBackColor, palette()));
    auto area = rect();
    if (look == ButtonModel::Pressed) area = {1, 1, width() - 1, height() - 1};
    DrawImage(painter, area);
    if (look == ButtonModel::Hot) DrawEdge(painter, rect(), EdgeStyle::Raised, m_borderWidth, palette());
    if (look == ButtonModel::Pressed) DrawEdge(painter, rect(), EdgeStyle::Sunken, 1, palette());
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(1, 1, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void ActiveButton::DrawImage(QPainter& painter, const QRect& area)
{
    if (!isEnabled()) painter.setOpacity(0.4);
    DrawCentred(painter, m_image, area);
    painter.setOpacity(1);
}

void ActiveButton::mousePressEvent(QMouseEvent* event)
{
    m_model.Press(ButtonBits(event->button()), IsInside(*event));
    update();
    Q_EMIT MouseDown(ToMouseArgs(*event, *this));
}

void ActiveButton::mouseMoveEvent(QMouseEvent* event)
{
    const auto before = State();
    m_model.Move(IsInside(*event));
    if (State() != before) update();
    Q_EMIT MouseMove(ToMouseArgs(*event, *this));
}

void ActiveButton::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<ActiveButton> self(this);
    const auto args = ToMouseArgs(*event, *this);
    const bool isClick = m_model.Release(ButtonBits(event->button()), IsInside(*event));
    update();
    Q_EMIT MouseUp(args);
    if (self && isClick) Q_EMIT Click();
}

// The second press of a double click sinks the button like any other.
void ActiveButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_model.Press(ButtonBits(event->button()), IsInside(*event));
    update();
    Q_EMIT DblClick();
}

void ActiveButton::enterEvent(QEnterEvent*)
{
    m_model.Move(true);
    update();
}

void ActiveButton::leaveEvent(QEvent*)
{
    m_model.Move(false);
    update();
}

void ActiveButton::hideEvent(QHideEvent*)
{
    m_model.Cancel();
}

void ActiveButton::focusOutEvent(QFocusEvent* event)
{
    m_model.Cancel();
    QWidget::focusOutEvent(event);
}

void ActiveButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return PressOnce();
    if (!IsPressKey(*event)) return QWidget::keyPressEvent(event);
    m_model.Press(MouseButton::Left, true);
    update();
}

void ActiveButton::keyReleaseEvent(QKeyEvent* event)
{
    if (!IsPressKey(*event)) return QWidget::keyReleaseEvent(event);
    const bool isClick = m_model.Release(MouseButton::Left, true);
    if (!underMouse()) m_model.Move(false);
    update();
    if (isClick) PressOnce();
}

void ActiveButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) {
        if (!isEnabled()) m_model.Cancel();
        update();
        m_changed.Mark("Enabled");
    }
    QWidget::changeEvent(event);
}
