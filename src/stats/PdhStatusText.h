#pragma once

#include "platform/PdhStatus.h"

#include <string>
#include <string_view>

// What went wrong, in words for the user; empty for a status that is no warning and no error.
std::string PdhStatusText(PdhStatus status);

// A message, then on a line of its own the status and its text: "...\nError 0xC0000BB8 - The specified ...".
std::string WithPdhError(std::string_view message, PdhStatus status, std::string_view text);
