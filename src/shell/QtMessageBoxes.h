#pragma once

#include "contracts/MessageBoxes.h"

// Message boxes over the window that is in use. A box waits for its answer in an event loop of its own.
class QtMessageBoxes : public MessageBoxes {
public:
    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override;
};
