#pragma once

#include "shell/StartOptions.h"

// Runs Quillet from its start to its end; answers the exit code, 0 or 1. Without a display the window is
// drawn offscreen and a picture of it written.
int RunProgram(StartOptions options, char* programName);
