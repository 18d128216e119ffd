#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"

// What the window uses of the desktop. Tests bring their own.
struct Desktop {
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
};
