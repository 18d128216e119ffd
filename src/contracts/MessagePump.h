#pragma once

// Lets pending window messages run. Long work calls it between its steps, up to millions of times, so an
// implementation looks at the clock and enters the event loop only every few milliseconds.
// Anything the user can do may have happened when Run returns.
class MessagePump {
public:
    virtual ~MessagePump() = default;
    virtual void Run() = 0;

    // Enters the event loop now, whenever that was last: what was changed is painted when it returns.
    virtual void Visit() { Run(); }
};
