#include "controls/ContainedControls.h"

#include "base/Twips.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

double Twips(int pixels, int dpi)
{
    return pixels * kTwipsPerInch / dpi;
}

// Far out of sight is where a control may be, but no farther than a window system counts.
int Pixels(double twips, int dpi)
{
    constexpr double kMost = 1'000'000;
    return qRound(std::clamp(PixelsFromTwips(twips, dpi), -kMost, kMost));
}

}  // namespace

std::vector<QWidget*> ContainedControls::List() const
{
    std::vector<QWidget*> controls;
    for (auto* const child : m_surface.children()) {
        auto* const control = qobject_cast<QWidget*>(child);
        if (control && Contains(control)) controls.push_back(control);
    }
    return controls;
}

bool ContainedControls::Contains(const QWidget* control) const
{
    return control->parentWidget() == &m_surface && !control->isWindow() &&
           std::find(m_parts.begin(), m_parts.end(), control) == m_parts.end();
}

QRect ContainedControls::Mirrored(const QRect& pixels, int surfaceWidth) const
{
    return QStyle::visualRect(m_surface.layoutDirection(), {0, 0, surfaceWidth, 0}, pixels);
}

ContainedControls::Known& ContainedControls::Look(const QWidget& control, int surfaceWidth)
{
    auto& known = m_places[&control];
    const auto pixels = control.geometry();
    if (known.pixels != pixels) {
        const int x = control.logicalDpiX();
        const int y = control.logicalDpiY();
        const auto place = Mirrored(pixels, surfaceWidth);
        known.twips = {Twips(place.left(), x), Twips(place.top(), y), Twips(place.width(), x),
                       Twips(place.height(), y)};
        known.pixels = pixels;
    }
    return known;
}

void ContainedControls::Show(QWidget& control, Known& known)
{
    const int x = control.logicalDpiX();
    const int y = control.logicalDpiY();
    const auto& twips = known.twips;
    const QRect place(Pixels(twips.left, x), Pixels(twips.top, y), std::max(0, Pixels(twips.width, x)),
                      std::max(0, Pixels(twips.height, y)));
    control.setGeometry(Mirrored(place, m_surface.width()));
    known.pixels = control.geometry();
}

void ContainedControls::Place(QWidget& control, const PanelRect& twips)
{
    auto& known = m_places[&control];
    known.twips = twips;
    Show(control, known);
}

PanelRect ContainedControls::PlaceOf(const QWidget& control)
{
    return Look(control, m_surface.width()).twips;
}

std::vector<PanelRect> ContainedControls::Places()
{
    std::vector<PanelRect> places;
    for (const auto* const control : List()) places.push_back(PlaceOf(*control));
    return places;
}

void ContainedControls::MoveBy(double twipsX, double twipsY)
{
    for (auto* const control : List()) {
        auto& known = Look(*control, m_surface.width());
        known.twips.left += twipsX;
        known.twips.top += twipsY;
        Show(*control, known);
    }
}

void ContainedControls::SurfaceResized(int oldWidth)
{
    if (!m_surface.isRightToLeft() || oldWidth == m_surface.width()) return;
    for (auto* const control : List()) Show(*control, Look(*control, oldWidth));
}

void ContainedControls::Flip()
{
    for (auto* const control : List())
        if (const auto found = m_places.find(control); found != m_places.end()) Show(*control, found->second);
}
