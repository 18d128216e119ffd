#include "stats/Balloon.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int kStem = 10;     // height of the balloon's point, device independent pixels as all here
constexpr int kRadius = 7;    // of its corners
constexpr int kPadding = 9;   // around the texts
constexpr int kInset = 22;    // of the point from the balloon's edge
constexpr int kPointer = 18;  // what the mouse pointer covers below the anchor

QLabel* MakeLabel(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

Balloon::Balloon(QWidget* owner)
    : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                         Qt::WindowTransparentForInput),
      m_icon(MakeLabel(this)),
      m_title(MakeLabel(this)),
      m_text(MakeLabel(this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    auto* const grid = new QGridLayout(this);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    grid->setHorizontalSpacing(kPadding - 2);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_icon, 0, 0);
    grid->addWidget(m_title, 0, 1);
    grid->addWidget(m_text, 1, 0, 1, 2);
}

void Balloon::Show(const Content& content)
{
    m_isBalloon = content.isBalloon;
    const int extent = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_icon->setPixmap(content.icon.pixmap(QSize(extent, extent), devicePixelRatioF()));
    m_icon->setVisible(!content.icon.isNull() && !content.title.isEmpty());
    m_title->setText(content.title);
    m_title->setVisible(!content.title.isEmpty());
    m_text->setText(content.text);
    m_text->setVisible(!content.text.isEmpty());
    // At the window's leading side, beside the icon, also where the words run the other way.
    const auto leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute;
    for (auto* const label : {m_title, m_text}) label->setAlignment(leading | Qt::AlignVCenter);
    setFont(QToolTip::font());
    auto bold = font();
    bold.setBold(true);
    m_title->setFont(bold);
    ShowColors(content);
}

void Balloon::ShowColors(const Content& content)
{
    auto colors = QToolTip::palette();
    const auto fore = content.foreColor.isValid() ? content.foreColor : colors.color(QPalette::ToolTipText);
    const auto back = content.backColor.isValid() ? content.backColor : colors.color(QPalette::ToolTipBase);
    for (const auto role : {QPalette::WindowText, QPalette::ToolTipText}) colors.setColor(role, fore);
    for (const auto role : {QPalette::Window, QPalette::ToolTipBase}) colors.setColor(role, back);
    setPalette(colors);
}

void Balloon::PopUpAt(const QPoint& globalAnchor, bool isCentered)
{
    const auto* const at = QGuiApplication::screenAt(globalAnchor);
    const auto room = (at ? at : screen())->availableGeometry();
    const int stem = m_isBalloon ? kStem : 0;
    const int pointer = isCentered ? 0 : kPointer;
    layout()->setContentsMargins(kPadding, kPadding + stem, kPadding, kPadding + stem);
    const auto wanted = layout()->sizeHint();
    m_isBelow = globalAnchor.y() + pointer + wanted.height() <= room.bottom();
    // On the side that does not point, the stem's room is not needed.
    layout()->setContentsMargins(kPadding, kPadding + (m_isBelow ? stem : 0), kPadding,
                                 kPadding + (m_isBelow ? 0 : stem));
    layout()->activate();
    const auto size = layout()->sizeHint();
    resize(size);
    const int rightmost = std::max(room.left(), room.right() - size.width());
    const int inset = isCentered ? size.width() / 2 : kInset;
    const int left = std::clamp(globalAnchor.x() - inset, room.left(), rightmost);
    const int top = m_isBelow ? globalAnchor.y() + pointer : globalAnchor.y() - size.height();
    m_tipX = std::clamp(globalAnchor.x() - left, kInset, std::max(kInset, size.width() - kInset));
    move(left, std::max(room.top(), top));
    show();
    update();
}

QPainterPath Balloon::Outline() const
{
    const int stem = m_isBalloon ? kStem : 0;
    const auto body =
        QRectF(rect()).adjusted(0.5, m_isBelow ? stem + 0.5 : 0.5, -0.5, m_isBelow ? -0.5 : -stem - 0.5);
    QPainterPath outline;
    const int radius = m_isBalloon ? kRadius : 0;
    outline.addRoundedRect(body, radius, radius);
    if (!m_isBalloon) return outline;
    const double base = m_isBelow ? body.top() : body.bottom();
    const double point = m_isBelow ? 0.5 : height() - 0.5;
    QPainterPath tip;
    tip.moveTo(m_tipX - kStem, base);
    tip.lineTo(m_tipX, point);
    tip.lineTo(m_tipX + kStem, base);
    tip.closeSubpath();
    return outline.united(tip);
}

void Balloon::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    auto frame = palette().color(QPalette::ToolTipText);
    frame.setAlphaF(0.5F);
    painter.setPen(QPen(frame, 1));
    painter.setBrush(palette().brush(QPalette::ToolTipBase));
    painter.drawPath(Outline());
}
