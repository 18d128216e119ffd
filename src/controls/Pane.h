#pragma once

#include "base/Result.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class Panes;
class QWidget;
class SplitterCore;

// One half of a splitter: the place of one control, which may itself be a splitter. Its splitter owns it.
// Lengths are in the splitter's units.
class Pane {
public:
    Pane(Panes& parent, int index) : m_parent(&parent), m_index(index) {}
    Pane(const Pane&) = delete;
    Pane& operator=(const Pane&) = delete;

    std::string_view Key() const;          // "Left", "Right", "Top" or "Bottom"
    int Index() const { return m_index; }  // 1 or 2

    // As laid out now, with nothing moved. Setting the size along the splitter's main axis moves the bar, and
    // shows a disabled pane first; along the other axis it sizes the whole splitter, in its own pane if it
    // has one. A negative size is an invalid argument (5) and changes nothing.
    std::int64_t Width() const;
    Done SetWidth(std::int64_t width);
    std::int64_t Height() const;
    Done SetHeight(std::int64_t height);

    Panes* Child() const { return m_child; }  // the panes of the splitter in this pane, or null
    Pane* Sibling() const;
    Panes* Parent() const { return m_parent; }
    Pane* ParentPane() const;
    Pane* TopPane();  // the pane of the top splitter that holds this one; itself when it is one
    SplitterCore* Splitter() const;

    QWidget* Control() const;
    Done SetControl(QWidget* control);

    // A disabled pane leaves its room to its sibling; with both disabled the splitter leaves its own pane,
    // and comes back with either.
    bool Enabled() const { return m_isEnabled; }
    void SetEnabled(bool enabled);
    bool Visible() const;  // enabled, with everything that it lies in

    // The pane of a control, anywhere below the same pane of the top splitter, or below this one. Null when
    // there is none.
    Pane* FromControl(const QWidget* control);
    Pane* FindChildControl(const QWidget* control);

    // The name of the control that this pane is meant for, as it is kept with the splitter's properties.
    const std::string& ControlName() const { return m_controlName; }
    void SetControlName(std::string name) { m_controlName = std::move(name); }

    // Told by the splitter that another control took the place.
    void ControlChanged(Panes* child);

private:
    friend class Panes;

    std::int64_t Length(bool isWidth) const;
    Done SetLength(bool isWidth, std::int64_t length);
    void KeepTabStop();
    void RestoreTabStop();

    Panes* m_parent;
    Panes* m_child = nullptr;
    const int m_index;
    bool m_isEnabled = true;
    std::optional<bool> m_tabStop;  // the control's, while the pane is disabled
    std::string m_controlName;
};
