#pragma once

#include "controls/ContainedControls.h"
#include "controls/MouseTeller.h"

// The inside of a panel, within its border: what the host's controls lie on.
class PanelSurface : public MouseTeller {
    Q_OBJECT

public:
    explicit PanelSurface(QWidget* parent);

    ContainedControls& Contained() { return m_contained; }
    const ContainedControls& Contained() const { return m_contained; }

Q_SIGNALS:
    void ControlAdded(QWidget* control);  // it came to lie in front of all others

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ContainedControls m_contained;
};
