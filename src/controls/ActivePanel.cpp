#include "controls/ActivePanel.h"

#include "base/Twips.h"
#include "controls/ControlPainting.h"
#include "controls/PanelAccessibility.h"
#include "controls/SystemColors.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPointer>
#include <QStyle>

#include <algorithm>

namespace {

constexpr double kHeaderTwips = 285;

QRect Rounded(const PanelRect& place)
{
    return {qRound(place.left), qRound(place.top), qRound(place.width), qRound(place.height)};
}

}  // namespace

ActivePanel::ActivePanel(QWidget* parent)
    : QWidget(parent),
      m_surface(new PanelSurface(this)),
      m_header(new ActiveHeader(m_surface)),
      m_bars(new ::ScrollBars(m_surface))
{
    InstallPanelAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    m_surface->setObjectName(QStringLiteral("surface"));
    m_header->setObjectName(QStringLiteral("hdrMain"));
    m_bars->setObjectName(QStringLiteral("sbMain"));
    for (const QWidget* const part : {static_cast<QWidget*>(m_header), static_cast<QWidget*>(m_bars)})
        m_surface->Contained().Exclude(part);
    m_header->SetBorderWidth(1);
    ConnectParts();
    ShowColors();
    LayOutParts();
    m_content = {ScrollWidth(), ScrollHeight()};
}

// The end of a control inside may move the focus; this panel is past answering then.
ActivePanel::~ActivePanel()
{
    qApp->disconnect(this);
    m_surface->disconnect(this);
    m_bars->disconnect(this);
}

void ActivePanel::ConnectParts()
{
    connect(m_surface, &PanelSurface::Click, this, &ActivePanel::Click);
    connect(m_surface, &PanelSurface::DblClick, this, &ActivePanel::DblClick);
    connect(m_surface, &PanelSurface::MouseDown, this, &ActivePanel::MouseDown);
    connect(m_surface, &PanelSurface::MouseMove, this, &ActivePanel::MouseMove);
    connect(m_surface, &PanelSurface::MouseUp, this, &ActivePanel::MouseUp);
    connect(m_surface, &PanelSurface::ControlAdded, this, [this](QWidget* control) {
        RaiseParts();
        JoinTabOrder(*control);
    });
    connect(m_header, &ActiveHeader::CloseClick, this, &ActivePanel::CloseClick);
    connect(m_header, &ActiveHeader::Click, this, [this] {
        TakeFocus(Qt::MouseFocusReason);
        Q_EMIT HeaderClick();
    });
    connect(m_header, &ActiveHeader::DblClick, this, &ActivePanel::HeaderDblClick);
    connect(m_header, &ActiveHeader::MouseDown, this, &ActivePanel::HeaderMouseDown);
    connect(m_header, &ActiveHeader::MouseMove, this, &ActivePanel::HeaderMouseMove);
    connect(m_header, &ActiveHeader::MouseUp, this, &ActivePanel::HeaderMouseUp);
    connect(m_bars, &::ScrollBars::ScrollX, this,
            [this](int code) { Followed(ScrollAxis::Horizontal, code); });
    connect(m_bars, &::ScrollBars::ScrollY, this, [this](int code) { Followed(ScrollAxis::Vertical, code); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FocusMoved(now); });
}

int ActivePanel::BorderThickness() const
{
    if (m_borderStyle == 0) return 0;
    return m_appearance == 1 ? 2 : 1;
}

void ActivePanel::LayOutParts()
{
    const int border = BorderThickness();
    const auto inner = rect().adjusted(border, border, -border, -border);
    m_surface->setGeometry(inner.left(), inner.top(), std::max(0, inner.width()),
                           std::max(0, inner.height()));
    m_scale.SetSurface(m_surface->width(), m_surface->height(), logicalDpiX(), logicalDpiY());
    const bool isAcross = m_headerSide == HeaderSide::Top || m_headerSide == HeaderSide::Bottom;
    const int thickness = qRound(PixelsFromTwips(kHeaderTwips, isAcross ? logicalDpiY() : logicalDpiX()));
    const auto places = LayOutPanel(m_headerSide, m_surface->width(), m_surface->height(), thickness);
    const auto mirrored = [this](const PanelRect& place) {
        return QStyle::visualRect(layoutDirection(), m_surface->rect(), Rounded(place));
    };
    m_header->setGeometry(mirrored(places.header));
    m_bars->Fit(m_scale, mirrored(places.scrollArea));
}

void ActivePanel::resizeEvent(QResizeEvent*)
{
    const QPointer<ActivePanel> self(this);
    LayOutParts();
    if (self) Q_EMIT Resize();
}

void ActivePanel::showEvent(QShowEvent*)
{
    RaiseParts();
    if (AutoScroll()) UpdateScrollExtent();
}

void ActivePanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto style = m_appearance == 1 ? EdgeStyle::Sunken : EdgeStyle::Flat;
    DrawEdge(painter, rect(), style, BorderThickness(), palette());
}

// The surface hands its colours to what lies on it, but not to the panel's own parts.
void ActivePanel::ShowColors()
{
    auto colors = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        auto source = palette();
        source.setCurrentColorGroup(group);
        colors.setColor(group, QPalette::Window, SystemColor(m_backColor, source));
        colors.setColor(group, QPalette::WindowText, SystemColor(m_foreColor, source));
    }
    m_surface->setPalette(colors);
    m_header->setPalette(palette());
    m_bars->setPalette(palette());
}

void ActivePanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange: ShowColors(); break;
    case QEvent::LayoutDirectionChange: LayOutParts(); break;
    case QEvent::EnabledChange: m_header->SetEnabled(Enabled()); break;
    default: break;
    }
}

void ActivePanel::RaiseParts()
{
    m_bars->raise();
    m_header->raise();
}

void ActivePanel::MeasureControls()
{
    const auto places = m_surface->Contained().Places();
    const double headerHeight = m_headerSide == HeaderSide::Top ? m_scale.FromPixelsY(m_header->height()) : 0;
    m_content = MeasureContent(places, {m_scale.TwipsX(1), m_scale.TwipsY(1), m_bars->PosX(), m_bars->PosY(),
                                        m_margin, headerHeight});
}

void ActivePanel::UpdateScrollExtent()
{
    const QPointer<ActivePanel> self(this);
    MeasureControls();
    RaiseParts();
    m_bars->SetScrollExtentX(ScrollWidth());
    if (self) m_bars->SetScrollExtentY(ScrollHeight());
}

void ActivePanel::Followed(ScrollAxis axis, int code)
{
    const QPointer<ActivePanel> self(this);
    if (AutoScroll()) FollowScroll();
    if (!self) return;
    if (axis == ScrollAxis::Horizontal)
        Q_EMIT ScrollX(code);
    else
        Q_EMIT ScrollY(code);
}

void ActivePanel::FollowScroll()
{
    const double x = m_appliedX - m_bars->PosX();
    const double y = m_appliedY - m_bars->PosY();
    m_appliedX = m_bars->PosX();
    m_appliedY = m_bars->PosY();
    if (x != 0 || y != 0) m_surface->Contained().MoveBy(m_scale.TwipsX(x), m_scale.TwipsY(y));
    if (const auto pump = m_pump) pump();  // which may end this panel
}

void ActivePanel::wheelEvent(QWheelEvent* event)
{
    m_bars->Wheel(*event);
}

// The menu key stands for the right button, in the middle.
void ActivePanel::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard) return event->ignore();
    Q_EMIT MouseDown({MouseButton::Right, ShiftBits(event->modifiers()),
                      static_cast<float>(TwipsFromPixels(m_surface->width() / 2.0, logicalDpiX())),
                      static_cast<float>(TwipsFromPixels(m_surface->height() / 2.0, logicalDpiY()))});
}
