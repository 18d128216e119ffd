#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "help/ProgramStarter.h"
#include "help/WebOpener.h"

// What the window uses of the desktop. Tests bring their own.
struct Desktop {
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
    WebOpener& web;
    ProgramStarter& starter;
};
