#pragma once

#include "contracts/MessagePump.h"

#include <cstdint>

// Qt's event loop as the message pump: entered at the first call and then about every 15 ms. A call in
// between costs a few nanoseconds.
class QtMessagePump : public MessagePump {
public:
    void Run() override;
    void Visit() override;

private:
    std::int64_t m_next = 0;  // when the event loop may be entered again; milliseconds
};

// Keeps the windows painted while something else is waited for. The user's keys and clicks stay where they
// are until the wait is over.
void PaintWhileWaiting();
