#pragma once

#include "controls/ChangedNames.h"
#include "controls/CoordinateScale.h"
#include "controls/PropertyBag.h"
#include "controls/ScrollModel.h"

#include <QWidget>

#include <array>

class QScrollBar;

// Two scroll bars at the right and lower edge of an area (the left one when layouts run right to left). The
// rest of the area is not there: what lies behind shows through and receives the mouse. Lengths are in the
// container's unit; see ScrollModel.
class ScrollBars : public QWidget {
    Q_OBJECT

public:
    explicit ScrollBars(QWidget* parent = nullptr);

    float PosX() const { return Model(ScrollAxis::Horizontal).position; }
    float PosY() const { return Model(ScrollAxis::Vertical).position; }
    void SetPosX(float position) { SetPosition(ScrollAxis::Horizontal, position); }
    void SetPosY(float position) { SetPosition(ScrollAxis::Vertical, position); }
    float MinX() const { return Model(ScrollAxis::Horizontal).minimum; }
    float MinY() const { return Model(ScrollAxis::Vertical).minimum; }
    void SetMinX(float minimum) { SetMinimum(ScrollAxis::Horizontal, minimum); }
    void SetMinY(float minimum) { SetMinimum(ScrollAxis::Vertical, minimum); }
    float MaxX() const { return Model(ScrollAxis::Horizontal).maximum; }
    float MaxY() const { return Model(ScrollAxis::Vertical).maximum; }
    Done SetMaxX(float maximum) { return SetMaximum(ScrollAxis::Horizontal, maximum); }
    Done SetMaxY(float maximum) { return SetMaximum(ScrollAxis::Vertical, maximum); }
    float PageX() const { return Model(ScrollAxis::Horizontal).page; }
    float PageY() const { return Model(ScrollAxis::Vertical).page; }
    void SetPageX(float page) { SetPage(ScrollAxis::Horizontal, page); }
    void SetPageY(float page) { SetPage(ScrollAxis::Vertical, page); }
    bool ShowX() const { return Model(ScrollAxis::Horizontal).isWanted; }
    bool ShowY() const { return Model(ScrollAxis::Vertical).isWanted; }
    void SetShowX(bool isWanted) { SetWanted(ScrollAxis::Horizontal, isWanted); }
    void SetShowY(bool isWanted) { SetWanted(ScrollAxis::Vertical, isWanted); }
    float ScrollExtentX() const { return m_model.Extent(ScrollAxis::Horizontal); }
    float ScrollExtentY() const { return m_model.Extent(ScrollAxis::Vertical); }
    void SetScrollExtentX(float extent) { SetExtent(ScrollAxis::Horizontal, extent); }
    void SetScrollExtentY(float extent) { SetExtent(ScrollAxis::Vertical, extent); }
    bool AutoScroll() const { return m_model.IsAutomatic(); }
    void SetAutoScroll(bool isAutomatic);
    bool FitContainer() const { return m_fitsContainer; }
    void SetFitContainer(bool fits);
    WId hWnd() const { return winId(); }

    // Moves the control to this rectangle of its container; a width or height of -1 is the container's own.
    void AutoFit(float left, float top, float width, float height);
    void Refresh() { update(); }

    const ScrollModel::Axis& Model(ScrollAxis axis) const { return m_model.Of(axis); }
    QScrollBar& Bar(ScrollAxis axis) const { return *m_bars[static_cast<std::size_t>(axis)]; }

    // Puts the control there, in pixels, in a container with that unit; lays it out once.
    void Fit(const CoordinateScale& scale, const QRect& place);

    // Does what the user asks for with the bar, whether it is shown or not. track: for ThumbTrack.
    void Request(ScrollAxis axis, int code, int track = 0);
    bool CanScroll(ScrollAxis axis) const;  // by the user: its bar is on the screen
    // Lets the bars act on a wheel that turned elsewhere; accepts the event when one of them did.
    void Wheel(QWheelEvent& event);

    // Where contents can be seen, in pixels of this control.
    QRect FreeArea() const;

    bool IsChanged(std::string_view property) const { return m_changed.Contains(property); }
    void Load(const PropertyBag& bag);  // positions are not kept
    void Save(PropertyBag& bag) const;

Q_SIGNALS:
    void Resize();
    void ScrollX(int code);
    void ScrollY(int code);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void SetPosition(ScrollAxis axis, float position);
    void SetMinimum(ScrollAxis axis, float minimum);
    Done SetMaximum(ScrollAxis axis, float maximum);
    void SetPage(ScrollAxis axis, float page);
    void SetWanted(ScrollAxis axis, bool isWanted);
    void SetExtent(ScrollAxis axis, float extent);
    void Changed(const char* name, ScrollAxis axis);
    QScrollBar* MakeBar(ScrollAxis axis);
    void Answer(ScrollAxis axis, int action);
    void Measure();
    void TakeSize();
    void Settle(ScrollChanges changes);
    void ShowBars();
    void PlaceBars();

    ScrollModel m_model;
    CoordinateScale m_scale;
    bool m_fitsContainer = false;
    bool m_isTurning = false;
    bool m_isMeasured = false;
    ChangedNames m_changed;
    std::array<QScrollBar*, 2> m_bars;
};
