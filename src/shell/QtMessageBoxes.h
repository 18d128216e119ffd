#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/WaitCursor.h"

// Message boxes over the window that is in use. A box waits for its answer in an event loop of its own, under
// the usual pointer: it is the user who is waited for.
class QtMessageBoxes : public MessageBoxes {
public:
    explicit QtMessageBoxes(ScreenPointer& pointer) : m_pointer(pointer) {}  // which must outlive this

    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override;

private:
    ScreenPointer& m_pointer;
};
