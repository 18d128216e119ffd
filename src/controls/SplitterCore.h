#pragma once

#include "controls/ChangedNames.h"
#include "controls/OleColors.h"
#include "controls/Panes.h"
#include "controls/SplitterLayout.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

class PropertyBag;

// A splitter without its window: the properties with their limits, the panes, the layout and the drag. A
// window derives from it and does what the protected operations say. Lengths are in the units of Width() and
// Height(). A setter does nothing when the value stays the same.
class SplitterCore {
public:
    SplitterCore();
    virtual ~SplitterCore();
    SplitterCore(const SplitterCore&) = delete;
    SplitterCore& operator=(const SplitterCore&) = delete;

    std::int32_t Orientation() const { return m_shape.orientation; }
    void SetOrientation(std::int32_t orientation);  // 0 left/right; any other value is 1, top/bottom
    std::int32_t SplitterSize() const { return m_shape.splitterSize; }
    void SetSplitterSize(std::int32_t size);  // 1 to the splitter's width less 1, in either orientation
    std::int32_t SplitterPos() const;         // rounded, ties to even
    void SetSplitterPos(std::int32_t percent);
    std::int32_t SplitterPosMin() const { return m_shape.splitterPosMin; }
    void SetSplitterPosMin(std::int32_t percent);
    std::int32_t SplitterPosMax() const { return m_shape.splitterPosMax; }
    void SetSplitterPosMax(std::int32_t percent);
    std::uint32_t BackColor() const { return m_backColor; }  // colours are OLE colour values
    void SetBackColor(std::uint32_t color);
    std::uint32_t SplitterColor() const { return m_splitterColor; }
    void SetSplitterColor(std::uint32_t color);
    std::int32_t CursorStyle() const { return m_cursorStyle; }  // 0: the system's; else the program's own
    void SetCursorStyle(std::int32_t style);
    bool Enabled() const { return m_isEnabled; }  // of the bar alone
    void SetEnabled(bool enabled);
    std::int32_t VisiblePanes() const { return m_shape.visiblePanes; }
    void SetVisiblePanes(std::int32_t panes);     // 0 both, 1 or 2 that one alone; any other value is 0
    bool AutoInit() const { return m_autoInit; }  // kept for design tools; nothing here acts on it
    void SetAutoInit(bool autoInit);

    // The control in a pane, 1 or 2: null when empty, the placeholder label where none was given. A control
    // must lie directly in the splitter; fails otherwise, with everything as it was.
    Result<QWidget*> Controls(int index) const;
    Done SetControls(int index, QWidget* control);
    QWidget* LeftOrTopCtl() const { return Slot(1); }
    Done SetLeftOrTopCtl(QWidget* control);
    QWidget* RightOrBottomCtl() const { return Slot(2); }
    Done SetRightOrBottomCtl(QWidget* control);

    ::Panes& Panes() { return m_panes; }
    const ::Panes& Panes() const { return m_panes; }

    // Lays the splitter out. Asked for again in the middle of it, it is done once more at its end.
    void Refresh();

    // Loading applies each limit; what a bag does not hold takes its default. The controls that its panes
    // name are bound when the window is shown.
    void Load(const PropertyBag& bag);
    void Save(PropertyBag& bag) const;
    bool IsChanged(std::string_view property) const { return m_changed.Contains(property); }  // since loaded

    // The drag of the bar. Its begin is refused while the splitter is disabled or shows no bar.
    bool BeginDrag();
    void DragBy(std::int64_t offset);  // from where the bar is, along the main axis
    void EndDrag();
    void CancelDrag();  // ends it with the bar where it was before
    bool IsDragging() const { return m_isDragging; }

    // The position with its fraction, percent, as it can be given back later.
    float ExactPos() const { return m_shape.splitterPos; }
    void RestorePos(float percent);

    QWidget* Slot(int index) const { return m_slots[static_cast<std::size_t>(index - 1)]; }
    SplitterLayout CurrentLayout() const;
    std::int64_t BarPlace() const { return m_barPlace; }  // of the bar along the main axis

    virtual std::int64_t Width() const = 0;
    virtual std::int64_t Height() const = 0;

protected:
    // The splitter's own size; what cannot be done is left undone.
    virtual void SetOwnWidth(std::int64_t width) = 0;
    virtual void SetOwnHeight(std::int64_t height) = 0;

    // Shows the bar only when both panes are visible; moves bar, pane 1's control and pane 2's, in this
    // order.
    virtual void Place(const SplitterLayout& layout) = 0;
    virtual void PlaceBar(const SplitterRect& bar) = 0;
    virtual void ApplyColors() = 0;  // also when a drag begins and ends
    virtual void ApplyCursor() = 0;
    virtual void RaiseBar() = 0;
    virtual void TellSplitBegin() = 0;
    virtual void TellSplitComplete() = 0;

    virtual std::vector<QWidget*> ContainedControls() const = 0;
    virtual std::string ControlName(const QWidget* control) const = 0;
    virtual ::Panes* PanesOf(QWidget* control) const = 0;  // null when it is no splitter
    virtual bool TabStop(const QWidget* control) const = 0;
    virtual void SetTabStop(QWidget* control, bool isStop) = 0;
    virtual QWidget* Placeholder(int index) const = 0;
    virtual void ShowPlaceholder(int index, bool isShown) = 0;

    // For the window to call: it was shown or hidden, a control left it, its end begins.
    void Shown();
    void Hidden();
    void Forget(const QWidget* control);
    void End();

private:
    friend class Pane;
    friend class Panes;

    static constexpr std::uint32_t kStandardBackColor = OleColor::ButtonFace;
    static constexpr std::uint32_t kStandardSplitterColor = OleColor::ButtonShadow;

    template <class T>
    bool Store(T& property, T value, std::string_view name);
    void ClampPos();
    bool IsContained(const QWidget* control) const;
    void Take(int index, QWidget* control);
    void BindByName(Pane& pane);
    void GiveRoom(int index, std::int64_t length);
    void MoveBarTo(std::int64_t place, std::int64_t freeLength);
    std::int64_t FreeLength() const;

    SplitterShape m_shape;
    std::uint32_t m_backColor = kStandardBackColor;
    std::uint32_t m_splitterColor = kStandardSplitterColor;
    std::int32_t m_cursorStyle = 0;
    bool m_isEnabled = true;
    bool m_autoInit = false;

    ::Panes m_panes;
    std::array<QWidget*, 2> m_slots{};
    ChangedNames m_changed;

    std::int64_t m_barPlace = 0;
    float m_posBeforeDrag = 0;
    bool m_isDragging = false;
    bool m_isLoading = false;
    bool m_isLayingOut = false;
    bool m_isLayoutDue = false;
};
