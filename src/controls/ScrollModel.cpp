#include "controls/ScrollModel.h"

#include "controls/ControlErrors.h"
#include "controls/WholeNumber.h"

#include <algorithm>

namespace {

constexpr double kLinesPerPage = 15;
constexpr ScrollAxis kBothAxes[] = {ScrollAxis::Horizontal, ScrollAxis::Vertical};

ScrollAxis Other(ScrollAxis axis)
{
    return axis == ScrollAxis::Horizontal ? ScrollAxis::Vertical : ScrollAxis::Horizontal;
}

float Available(const ScrollModel::Axis& axis, bool isOtherNeeded)
{
    return std::max(0.0F, isOtherNeeded ? axis.size - axis.barBeside : axis.size);
}

float Finite(float value)
{
    return std::isfinite(value) ? value : 0.0F;
}

void GiveRange(ScrollModel::Axis& axis)
{
    axis.bar.minimum = WholeNumber(axis.minimum);
    axis.bar.maximum = WholeNumber(axis.maximum);
    axis.bar.page = WholeNumber(axis.page);
    axis.bar.Move(axis.position);
}

double Target(const ShownBar& bar, int code)
{
    switch (code) {
    case ScrollCode::LineUp: return bar.position - bar.page / kLinesPerPage;
    case ScrollCode::LineDown: return bar.position + bar.page / kLinesPerPage;
    case ScrollCode::PageUp: return bar.position - bar.page;
    case ScrollCode::PageDown: return bar.position + bar.page;
    case ScrollCode::ThumbTrack: return bar.track;
    case ScrollCode::Top: return bar.minimum;
    case ScrollCode::Bottom: return bar.maximum;
    default: return bar.position;
    }
}

}  // namespace

int ShownBar::Highest() const
{
    return std::max(minimum, maximum - std::max(page, 0));
}

int ShownBar::LineStep() const
{
    return WholeNumber(page / kLinesPerPage);
}

void ShownBar::Move(double wanted)
{
    position = std::clamp(WholeNumber(wanted), minimum, Highest());
}

float ScrollModel::Extent(ScrollAxis axis) const
{
    const auto& one = Of(axis);
    if (one.extent != 0 || m_isAutomatic) return one.extent;
    return one.maximum > one.minimum ? one.maximum - one.minimum : one.size;
}

ScrollChanges ScrollModel::SetAutomatic(bool isAutomatic)
{
    m_isAutomatic = isAutomatic;
    if (!m_isAutomatic) {
        Apply();
        return {};
    }
    Initialise();
    return LayOut();
}

ScrollChanges ScrollModel::SetExtent(ScrollAxis axis, float extent)
{
    At(axis).extent = Finite(extent);
    return m_isAutomatic ? LayOut() : ScrollChanges{};
}

ScrollChanges ScrollModel::SetSize(float width, float height)
{
    At(ScrollAxis::Horizontal).size = std::max(0.0F, Finite(width));
    At(ScrollAxis::Vertical).size = std::max(0.0F, Finite(height));
    return m_isAutomatic ? LayOut() : ScrollChanges{};
}

void ScrollModel::SetBarThickness(float verticalWidth, float horizontalHeight)
{
    At(ScrollAxis::Horizontal).barBeside = verticalWidth;
    At(ScrollAxis::Vertical).barBeside = horizontalHeight;
}

void ScrollModel::SetPosition(ScrollAxis axis, float position)
{
    auto& one = At(axis);
    one.bar.Move(position);
    one.position = static_cast<float>(one.bar.position);
}

void ScrollModel::SetMinimum(ScrollAxis axis, float minimum)
{
    if (m_isAutomatic) return;
    auto& one = At(axis);
    const float wanted = one.position + Finite(minimum) - one.minimum;
    one.minimum = Finite(minimum);
    one.bar.minimum = WholeNumber(one.minimum);
    SetPosition(axis, wanted);
}

Done ScrollModel::SetMaximum(ScrollAxis axis, float maximum)
{
    if (m_isAutomatic) return {};
    auto& one = At(axis);
    if (!std::isfinite(maximum) || maximum < one.position)
        return Fail(ControlError::InvalidArgument, "ScrollBars",
                    std::string(ControlError::InvalidArgumentText));
    one.maximum = maximum;
    one.bar.maximum = WholeNumber(maximum);
    one.bar.Move(one.bar.position);
    return {};
}

void ScrollModel::SetPage(ScrollAxis axis, float page)
{
    if (m_isAutomatic) return;
    auto& one = At(axis);
    one.page = Finite(page);
    one.bar.page = WholeNumber(one.page);
    one.bar.Move(one.bar.position);
}

void ScrollModel::SetWanted(ScrollAxis axis, bool isWanted)
{
    At(axis).isWanted = isWanted;
    Apply();
}

void ScrollModel::Load(ScrollAxis axis, const Axis& stored)
{
    auto& one = At(axis);
    one.minimum = Finite(stored.minimum);
    one.maximum = Finite(stored.maximum);
    one.page = Finite(stored.page);
    one.extent = Finite(stored.extent);
    one.isWanted = stored.isWanted;
}

ScrollChanges ScrollModel::Show()
{
    return SetAutomatic(m_isAutomatic);
}

bool ScrollModel::Request(ScrollAxis axis, int code, int track)
{
    auto& one = At(axis);
    one.bar.track = track;
    if (!m_isAutomatic) return true;
    const int before = one.bar.position;
    one.bar.Move(Target(one.bar, code));
    one.position = static_cast<float>(one.bar.position);
    return one.bar.position != before;
}

void ScrollModel::Initialise()
{
    for (auto& one : m_axes) {
        one.minimum = 0;
        one.maximum = one.extent;
        one.page = one.size;
        one.position = static_cast<float>(one.bar.position);
    }
}

ScrollChanges ScrollModel::LayOut()
{
    const float before[] = {m_axes[0].position, m_axes[1].position};
    FindNeeded();
    for (const auto axis : kBothAxes) {
        auto& one = At(axis);
        if (!one.isNeeded) {
            one.position = 0;
            continue;
        }
        one.maximum = one.extent;
        one.page = Available(one, Of(Other(axis)).isNeeded);
        one.position = std::min(one.position, one.maximum - one.page);
    }
    Apply();
    for (auto& one : m_axes)
        if (one.position != 0) one.position = static_cast<float>(one.bar.position);
    return {m_axes[0].position != before[0], m_axes[1].position != before[1]};
}

// The second round accounts for the room that the other bar takes. Positions wait until both rounds are
// over: the first one must not lose a position that the second one allows.
void ScrollModel::FindNeeded()
{
    for (auto& one : m_axes) one.isNeeded = false;
    for (int round = 0; round < 2; ++round) {
        for (const auto axis : kBothAxes) {
            auto& one = At(axis);
            one.isNeeded = Available(one, Of(Other(axis)).isNeeded) < one.extent;
        }
    }
}

// An automatic bar that is not needed gets an empty range, so that no request can move it.
void ScrollModel::Apply()
{
    for (auto& one : m_axes) {
        const bool isOff = m_isAutomatic && !one.isNeeded;
        one.bar.isShown = one.isWanted && !isOff;
        if (isOff)
            one.bar = ShownBar{};
        else
            GiveRange(one);
    }
}
