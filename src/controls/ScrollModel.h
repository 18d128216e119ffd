#pragma once

#include "base/Result.h"

#include <array>

enum class ScrollAxis { Horizontal = 0, Vertical = 1 };

// What the user asks of a scroll bar.
namespace ScrollCode {
inline constexpr int LineUp = 0;
inline constexpr int LineDown = 1;
inline constexpr int PageUp = 2;
inline constexpr int PageDown = 3;
inline constexpr int ThumbPosition = 4;
inline constexpr int ThumbTrack = 5;
inline constexpr int Top = 6;
inline constexpr int Bottom = 7;
inline constexpr int EndScroll = 8;
}  // namespace ScrollCode

// What a bar on the screen is given and answers: whole numbers, the position kept within its range.
struct ShownBar {
    int minimum = 0;
    int maximum = 0;
    int page = 0;
    int position = 0;
    int track = 0;  // where the user holds the thumb
    bool isShown = false;

    int Highest() const;  // the last position, where the page ends at the maximum
    int LineStep() const;
    void Move(double wanted);
};

// On which axes a position changed, so that its event is due.
struct ScrollChanges {
    bool horizontal = false;
    bool vertical = false;
};

// Two scroll bars: where they stand, whether they are needed and what a request does. All lengths are in
// the container's unit. In automatic mode ranges, pages and visibility follow from the extents and the own
// size; in manual mode the host sets them and positions the bars itself.
class ScrollModel {
public:
    struct Axis {
        float position = 0;
        float minimum = 0;
        float maximum = 0;
        float page = 0;
        float extent = 0;  // of the content
        bool isWanted = true;
        bool isNeeded = false;  // in automatic mode
        float size = 0;         // the control's own
        float barBeside = 0;    // what the other axis' bar takes away when it is needed
        ShownBar bar;
    };

    const Axis& Of(ScrollAxis axis) const { return m_axes[static_cast<std::size_t>(axis)]; }
    bool IsAutomatic() const { return m_isAutomatic; }
    float Extent(ScrollAxis axis) const;

    ScrollChanges SetAutomatic(bool isAutomatic);
    ScrollChanges SetExtent(ScrollAxis axis, float extent);
    ScrollChanges SetSize(float width, float height);
    void SetBarThickness(float verticalWidth, float horizontalHeight);
    void SetPosition(ScrollAxis axis, float position);
    void SetMinimum(ScrollAxis axis, float minimum);  // ignored in automatic mode, as are the next two
    Done SetMaximum(ScrollAxis axis, float maximum);  // error 5 below the position
    void SetPage(ScrollAxis axis, float page);
    void SetWanted(ScrollAxis axis, bool isWanted);

    // Starts afresh with stored values, before Show.
    void Load(ScrollAxis axis, const Axis& stored);
    void LoadAutomatic(bool isAutomatic) { m_isAutomatic = isAutomatic; }

    // The control comes into view.
    ScrollChanges Show();

    // Whether the request's event is due: in automatic mode when the position changed, else always.
    // track: where the user holds the thumb, for ScrollCode::ThumbTrack.
    bool Request(ScrollAxis axis, int code, int track);

private:
    Axis& At(ScrollAxis axis) { return m_axes[static_cast<std::size_t>(axis)]; }
    void Initialise();
    ScrollChanges LayOut();
    void FindNeeded();
    void Apply();

    std::array<Axis, 2> m_axes;
    bool m_isAutomatic = true;
};
