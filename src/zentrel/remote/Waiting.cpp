#include "zentrel/remote/Waiting.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::chrono::milliseconds kSlice{15};

gpr_timespec FromNow(Waiting::Clock::time_point until)
{
    if (until == Waiting::Clock::time_point::max()) return gpr_inf_future(GPR_CLOCK_MONOTONIC);
    const auto left = std::max(until - Waiting::Clock::now(), Waiting::Clock::duration::zero());
    const auto time = std::chrono::duration_cast<std::chrono::microseconds>(left).count() + 1;
    return gpr_time_add(gpr_now(GPR_CLOCK_MONOTONIC), gpr_time_from_micros(time, GPR_TIMESPAN));
}

}  // namespace

Waiting::Waiting(const WhileWaiting& hook) : m_hook(hook), m_nextHook(Clock::now() + kSlice) {}

Waiting::Outcome Waiting::For(grpc::CompletionQueue& queue, Clock::time_point until)
{
    for (;;) {
        void* tag = nullptr;
        bool isOk = false;
        const auto status =
            queue.AsyncNext(&tag, &isOk, FromNow(m_hook ? std::min(until, m_nextHook) : until));
        const auto now = Clock::now();
        if (m_hook && now >= m_nextHook) {
            m_hook();
            m_nextHook = Clock::now() + kSlice;
        }
        if (status == grpc::CompletionQueue::GOT_EVENT) return isOk ? Outcome::Ok : Outcome::NotOk;
        if (status == grpc::CompletionQueue::SHUTDOWN) return Outcome::NotOk;
        if (now >= until) return Outcome::TimeOut;
    }
}

CallQueue::~CallQueue()
{
    m_queue.Shutdown();
    void* tag = nullptr;
    bool isOk = false;
    while (m_queue.Next(&tag, &isOk)) {
    }
}

}  // namespace zentrel
