#pragma once

#include "zentrel/FileHandle.h"
#include "zentrel/StopSignals.h"

#include <chrono>

namespace zentrel {

// What wakes the daemon besides a request to end: its timer, and SIGHUP. Make it before other threads start;
// they inherit its mask.
class Wakeups {
public:
    enum class Cause { Stop, Timer, Reload };

    Wakeups();
    ~Wakeups();
    Wakeups(const Wakeups&) = delete;
    Wakeups& operator=(const Wakeups&) = delete;

    void SetTimer(std::chrono::seconds time);  // from now on
    Cause Wait(StopSignals& signals);

private:
    FileHandle m_hangUp;  // SIGHUP
    FileHandle m_timer;
    FileHandle m_both;  // an epoll of them
};

}  // namespace zentrel
