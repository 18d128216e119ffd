#include "controls/ScrollBars.h"

#include "base/Twips.h"
#include "controls/PanelAccessibility.h"
#include "controls/SystemColors.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr ScrollAxis kAxes[] = {ScrollAxis::Horizontal, ScrollAxis::Vertical};
const QRect kNowhere(-2, -2, 1, 1);  // an empty mask would be none

// Tells when the user lets go of a bar, after what that did.
class HeldBar : public QScrollBar {
public:
    HeldBar(Qt::Orientation orientation, ScrollBars& owner, ScrollAxis axis)
        : QScrollBar(orientation, &owner),
          m_owner(owner),
          m_axis(axis)
    {
    }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        const QPointer<HeldBar> self(this);
        QScrollBar::mouseReleaseEvent(event);
        if (self) m_owner.Request(m_axis, ScrollCode::EndScroll);
    }

private:
    ScrollBars& m_owner;
    ScrollAxis m_axis;
};

int CodeOf(int action)
{
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd: return ScrollCode::LineDown;
    case QAbstractSlider::SliderSingleStepSub: return ScrollCode::LineUp;
    case QAbstractSlider::SliderPageStepAdd: return ScrollCode::PageDown;
    case QAbstractSlider::SliderPageStepSub: return ScrollCode::PageUp;
    case QAbstractSlider::SliderToMinimum: return ScrollCode::Top;
    case QAbstractSlider::SliderToMaximum: return ScrollCode::Bottom;
    default: return ScrollCode::ThumbTrack;
    }
}

}  // namespace

ScrollBars::ScrollBars(QWidget* parent)
    : QWidget(parent),
      m_bars{MakeBar(ScrollAxis::Horizontal), MakeBar(ScrollAxis::Vertical)}
{
    InstallPanelAccessibility();
    setMask(kNowhere);
    if (parent) parent->installEventFilter(this);
}

QScrollBar* ScrollBars::MakeBar(ScrollAxis axis)
{
    const bool isAcross = axis == ScrollAxis::Horizontal;
    auto* const bar = new HeldBar(isAcross ? Qt::Horizontal : Qt::Vertical, *this, axis);
    bar->setObjectName(isAcross ? QStringLiteral("hsb") : QStringLiteral("vsb"));
    bar->setAccessibleName(isAcross ? tr("Horizontal scroll bar") : tr("Vertical scroll bar"));
    bar->hide();
    connect(bar, &QScrollBar::actionTriggered, this, [this, axis](int action) { Answer(axis, action); });
    connect(bar, &QScrollBar::sliderReleased, this,
            [this, axis, bar] { Request(axis, ScrollCode::ThumbPosition, bar->sliderPosition()); });
    return bar;
}

void ScrollBars::Answer(ScrollAxis axis, int action)
{
    if (action != QAbstractSlider::SliderNoAction) Request(axis, CodeOf(action), Bar(axis).sliderPosition());
}

void ScrollBars::Request(ScrollAxis axis, int code, int track)
{
    const QPointer<ScrollBars> self(this);
    const bool isDue = m_model.Request(axis, code, track);
    ShowBars();
    if (!isDue) return;
    if (axis == ScrollAxis::Horizontal)
        Q_EMIT ScrollX(code);
    else
        Q_EMIT ScrollY(code);
    if (self) ShowBars();
}

bool ScrollBars::CanScroll(ScrollAxis axis) const
{
    return isVisible() && isEnabled() && Model(axis).bar.isShown;
}

void ScrollBars::Wheel(QWheelEvent& event)
{
    event.ignore();
    if (m_isTurning) return;  // a bar that has no use for it hands it back up here
    const auto turn = event.angleDelta();
    const bool isAcross =
        std::abs(turn.x()) > std::abs(turn.y()) || event.modifiers().testFlag(Qt::ShiftModifier);
    const auto axis = isAcross ? ScrollAxis::Horizontal : ScrollAxis::Vertical;
    if (!CanScroll(axis)) return;
    const QPointer<ScrollBars> self(this);
    // Shift has done its work; a bar would turn whole pages with it.
    QWheelEvent turned(event.position(), event.globalPosition(), event.pixelDelta(), turn, event.buttons(),
                       event.modifiers() & ~Qt::ShiftModifier, event.phase(), event.inverted(),
                       event.source(), event.pointingDevice());
    m_isTurning = true;
    QApplication::sendEvent(&Bar(axis), &turned);
    if (self) m_isTurning = false;
    event.setAccepted(turned.isAccepted());
}

void ScrollBars::Fit(const CoordinateScale& scale, const QRect& place)
{
    const QPointer<ScrollBars> self(this);
    m_scale = scale;
    m_isMeasured = false;
    setGeometry(place);
    if (self && !m_isMeasured) TakeSize();
}

// The own size and the system's thickness of bars, in the container's unit.
void ScrollBars::Measure()
{
    const int thickness =
        style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &Bar(ScrollAxis::Vertical));
    m_model.SetBarThickness(static_cast<float>(m_scale.FromPixelsX(thickness)),
                            static_cast<float>(m_scale.FromPixelsY(thickness)));
}

void ScrollBars::TakeSize()
{
    m_isMeasured = true;
    Measure();
    Settle(m_model.SetSize(static_cast<float>(m_scale.FromPixelsX(width())),
                           static_cast<float>(m_scale.FromPixelsY(height()))));
}

void ScrollBars::Settle(ScrollChanges changes)
{
    const QPointer<ScrollBars> self(this);
    ShowBars();
    if (changes.horizontal) Q_EMIT ScrollX(ScrollCode::ThumbTrack);
    if (self && changes.vertical) Q_EMIT ScrollY(ScrollCode::ThumbTrack);
}

void ScrollBars::ShowBars()
{
    for (const auto axis : kAxes) {
        const auto& shown = Model(axis).bar;
        auto& bar = Bar(axis);
        bar.setRange(shown.minimum, shown.Highest());
        bar.setPageStep(std::max(1, shown.page));
        bar.setSingleStep(std::max(1, shown.LineStep()));
        bar.setValue(shown.position);
    }
    PlaceBars();
}

void ScrollBars::PlaceBars()
{
    const int thickness =
        style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &Bar(ScrollAxis::Vertical));
    const bool isAcross = Model(ScrollAxis::Horizontal).bar.isShown;
    const bool isDown = Model(ScrollAxis::Vertical).bar.isShown;
    const QRect low(0, height() - thickness, std::max(0, width() - (isDown ? thickness : 0)), thickness);
    const QRect side(width() - thickness, 0, thickness, std::max(0, height() - (isAcross ? thickness : 0)));
    Bar(ScrollAxis::Horizontal).setGeometry(QStyle::visualRect(layoutDirection(), rect(), low));
    Bar(ScrollAxis::Vertical).setGeometry(QStyle::visualRect(layoutDirection(), rect(), side));
    Bar(ScrollAxis::Horizontal).setVisible(isAcross);
    Bar(ScrollAxis::Vertical).setVisible(isDown);
    QRegion solid(kNowhere);
    if (isAcross) solid += QRect(0, height() - thickness, width(), thickness);
    if (isDown) solid += QStyle::visualRect(layoutDirection(), rect(), {side.x(), 0, thickness, height()});
    if (mask() != solid) setMask(solid);
}

QRect ScrollBars::FreeArea() const
{
    const int thickness =
        style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &Bar(ScrollAxis::Vertical));
    const QRect area(0, 0, width() - (Model(ScrollAxis::Vertical).bar.isShown ? thickness : 0),
                     height() - (Model(ScrollAxis::Horizontal).bar.isShown ? thickness : 0));
    return QStyle::visualRect(layoutDirection(), rect(), area);
}

void ScrollBars::AutoFit(float left, float top, float width, float height)
{
    const auto* const container = parentWidget();
    if (!container) return;
    const auto across = [this](float length) {
        return qRound(PixelsFromTwips(m_scale.TwipsX(length), logicalDpiX()));
    };
    const auto down = [this](float length) {
        return qRound(PixelsFromTwips(m_scale.TwipsY(length), logicalDpiY()));
    };
    const QRect place(across(left), down(top), width == -1 ? container->width() : across(width),
                      height == -1 ? container->height() : down(height));
    if (place != geometry()) setGeometry(place);
}

void ScrollBars::resizeEvent(QResizeEvent*)
{
    const QPointer<ScrollBars> self(this);
    if (m_fitsContainer) AutoFit(0, 0, -1, -1);
    TakeSize();
    if (self) Q_EMIT Resize();
}

void ScrollBars::showEvent(QShowEvent*)
{
    if (m_fitsContainer) AutoFit(0, 0, -1, -1);
    Measure();
    Settle(m_model.Show());
}

// Only the corner between two bars is the control's own.
void ScrollBars::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), SystemColor(OleColor::ButtonFace, palette()));
}

void ScrollBars::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) PlaceBars();
    if (event->type() == QEvent::StyleChange) TakeSize();
}

bool ScrollBars::eventFilter(QObject* watched, QEvent* event)
{
    if (m_fitsContainer && watched == parent() && event->type() == QEvent::Resize) AutoFit(0, 0, -1, -1);
    return QWidget::eventFilter(watched, event);
}
