#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "stats/CounterList.h"
#include "stats/modPerfCntr.h"

#include <string>

struct CounterServer {
    std::string name;  // as ServerAdmin has it
    bool isLocal = false;
};

struct InitPerfHost {
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
};

// Adds the whole list to the open query. Counters that cannot be had are left out; one message box with the
// title `caption` tells of the last of them. Lets messages run after each counter: when one of those closes
// or replaces the query, this ends without another word.
void InitPerfCounters(modPerfCntr& counters, const CounterList& list, const CounterServer& server,
                      const std::string& caption, InitPerfHost host);
