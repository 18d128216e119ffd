#pragma once

#include <string>
#include <string_view>

namespace zentrel {

// Tells the service manager that started this process, if one did: "READY=1" and the like, one assignment a
// line. What cannot be told is not told.
void NotifyManager(std::string_view text);

// The line that goes with "RELOADING=1".
std::string MonotonicTimeLine();

}  // namespace zentrel
