#pragma once

#include "zentrel/remote/RemoteTransport.h"

#include <grpcpp/completion_queue.h>

namespace zentrel {

// One call's patience: waits for its completion queue on the calling thread, which so does gRPC's work
// itself, and lets the caller's hook run meanwhile.
class Waiting {
public:
    using Clock = std::chrono::steady_clock;

    explicit Waiting(const WhileWaiting& hook);

    enum class Outcome { Ok, NotOk, TimeOut };  // NotOk: the operation ended without its result
    Outcome For(grpc::CompletionQueue& queue, Clock::time_point until = Clock::time_point::max());

private:
    const WhileWaiting& m_hook;
    Clock::time_point m_nextHook;
};

// A queue for one call at a time. Whoever drops it in the middle of a call cancels the call first.
class CallQueue {
public:
    CallQueue() = default;
    ~CallQueue();
    CallQueue(const CallQueue&) = delete;
    CallQueue& operator=(const CallQueue&) = delete;

    grpc::CompletionQueue& Get() { return m_queue; }

private:
    grpc::CompletionQueue m_queue;
};

}  // namespace zentrel
