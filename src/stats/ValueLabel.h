#pragma once

#include "controls/PlainLabel.h"

// A value in a panel: when the panel is too narrow for it, a tool tip tells it in full.
class ValueLabel : public PlainLabel {
    Q_OBJECT

public:
    using PlainLabel::PlainLabel;

protected:
    bool event(QEvent* event) override;
};
