#include "controls/SplitterCore.h"

#include <algorithm>
#include <cmath>

namespace {

// A control that asks for a layout whenever it is moved may not keep the splitter busy for ever.
constexpr int kMostRounds = 4;

}  // namespace

SplitterCore::SplitterCore() : m_panes(*this) {}

SplitterCore::~SplitterCore() = default;

// ---- properties

template <class T>
bool SplitterCore::Store(T& property, T value, std::string_view name)
{
    if (property == value) return false;
    property = value;
    if (!m_isLoading) m_changed.Mark(name);
    return true;
}

void SplitterCore::SetOrientation(std::int32_t orientation)
{
    if (!Store(m_shape.orientation, orientation == 0 ? 0 : 1, "Orientation")) return;
    ApplyCursor();
    Refresh();
}

void SplitterCore::SetSplitterSize(std::int32_t size)
{
    if (size == m_shape.splitterSize) return;
    auto kept = std::max<std::int64_t>(size, 1);
    if (kept >= Width()) kept = std::max<std::int64_t>(Width() - 1, 1);
    if (Store(m_shape.splitterSize, static_cast<std::int32_t>(kept), "SplitterSize")) Refresh();
}

std::int32_t SplitterCore::SplitterPos() const
{
    return static_cast<std::int32_t>(std::nearbyint(m_shape.splitterPos));
}

void SplitterCore::SetSplitterPos(std::int32_t percent)
{
    if (Store(m_shape.splitterPos, static_cast<float>(percent), "SplitterPos")) Refresh();
}

void SplitterCore::SetSplitterPosMin(std::int32_t percent)
{
    const auto kept = std::clamp(std::min(percent, m_shape.splitterPosMax), 0, 100);
    if (Store(m_shape.splitterPosMin, kept, "SplitterPosMin")) Refresh();
}

void SplitterCore::SetSplitterPosMax(std::int32_t percent)
{
    const auto kept = std::clamp(std::max(percent, m_shape.splitterPosMin), 0, 100);
    if (Store(m_shape.splitterPosMax, kept, "SplitterPosMax")) Refresh();
}

void SplitterCore::SetBackColor(std::uint32_t color)
{
    if (Store(m_backColor, color, "BackColor")) ApplyColors();
}

void SplitterCore::SetSplitterColor(std::uint32_t color)
{
    Store(m_splitterColor, color, "SplitterColor");
}

void SplitterCore::SetCursorStyle(std::int32_t style)
{
    if (Store(m_cursorStyle, style, "CursorStyle")) ApplyCursor();
}

void SplitterCore::SetEnabled(bool enabled)
{
    if (!Store(m_isEnabled, enabled, "Enabled")) return;
    if (!enabled) EndDrag();
    ApplyCursor();
}

void SplitterCore::SetVisiblePanes(std::int32_t panes)
{
    const std::int32_t kept = panes == 1 || panes == 2 ? panes : 0;
    if (!Store(m_shape.visiblePanes, kept, "VisiblePanes")) return;
    if (kept != 0) EndDrag();
    Refresh();
}

void SplitterCore::SetAutoInit(bool autoInit)
{
    Store(m_autoInit, autoInit, "AutoInit");
}

// ---- layout

void SplitterCore::ClampPos()
{
    const float clamped = ClampedPos(m_shape);
    if (clamped == m_shape.splitterPos) return;
    m_shape.splitterPos = clamped;
    m_changed.Mark("SplitterPos");
}

SplitterLayout SplitterCore::CurrentLayout() const
{
    auto shape = m_shape;
    shape.splitterPos = ClampedPos(shape);
    return LayOut(shape, Width(), Height());
}

void SplitterCore::Refresh()
{
    m_isLayoutDue = true;
    if (m_isLayingOut) return;
    m_isLayingOut = true;
    for (int round = 0; m_isLayoutDue && round < kMostRounds; ++round) {
        m_isLayoutDue = false;
        ClampPos();
        const auto layout = CurrentLayout();
        m_barPlace = Orientation() == 0 ? layout.bar.left : layout.bar.top;
        Place(layout);
    }
    m_isLayingOut = false;
}

std::int64_t SplitterCore::FreeLength() const
{
    return (Orientation() == 0 ? Width() : Height()) - SplitterSize();
}

// The position that puts the bar there; none without a free length.
void SplitterCore::MoveBarTo(std::int64_t place, std::int64_t freeLength)
{
    m_barPlace = place;
    m_shape.splitterPos =
        static_cast<float>(static_cast<double>(place) * 100 / static_cast<double>(freeLength));
}

void SplitterCore::GiveRoom(int index, std::int64_t length)
{
    const auto freeLength = FreeLength();
    if (freeLength > 0) MoveBarTo(BarForPane(index, length, freeLength), freeLength);
    Refresh();
}

// ---- drag

bool SplitterCore::BeginDrag()
{
    if (!m_isEnabled || m_isDragging || VisiblePanes() != 0) return false;
    m_isDragging = true;
    m_posBeforeDrag = m_shape.splitterPos;
    ApplyColors();
    RaiseBar();
    TellSplitBegin();
    return true;
}

void SplitterCore::DragBy(std::int64_t offset)
{
    const auto freeLength = FreeLength();
    if (!m_isDragging || freeLength <= 0) return;
    MoveBarTo(DraggedBar(m_shape, freeLength, m_barPlace + offset), freeLength);
    auto bar = CurrentLayout().bar;
    (Orientation() == 0 ? bar.left : bar.top) = m_barPlace;
    PlaceBar(bar);
}

void SplitterCore::EndDrag()
{
    if (!m_isDragging) return;
    m_isDragging = false;
    ApplyColors();
    Refresh();
    TellSplitComplete();
}

void SplitterCore::CancelDrag()
{
    if (m_isDragging) m_shape.splitterPos = m_posBeforeDrag;
    EndDrag();
}

void SplitterCore::RestorePos(float percent)
{
    if (Store(m_shape.splitterPos, percent, "SplitterPos")) Refresh();
}
