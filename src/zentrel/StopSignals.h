#pragma once

#include <chrono>

namespace zentrel {

// Ctrl+C and the system's request to end (SIGINT, SIGTERM) as something to ask for, so that long work ends
// between two steps. While one stands the signals no longer end the process. Make it before other threads
// start; they inherit its mask.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    bool Raised();                                 // once raised it stays so
    bool WaitFor(std::chrono::milliseconds time);  // waits; true as soon as one is raised
    bool WaitReadable(int file);                   // waits for something to read; false when one is raised

private:
    int m_file = -1;  // -1 when the system gave none; then signals end the process as ever
    bool m_raised = false;
};

}  // namespace zentrel
