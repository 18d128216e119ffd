#pragma once

#include "base/Result.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace background {

// Says once, to any thread, that something has ended.
class EndSignal {
public:
    void Give();
    bool IsGiven() const { return m_isGiven.load(std::memory_order_acquire); }
    bool Wait(std::chrono::milliseconds most);

private:
    std::mutex m_mutex;
    std::condition_variable m_given;
    std::atomic<bool> m_isGiven = false;
};

// Runs it on a thread that nobody waits for: one that never ends does not keep the process from ending.
Done RunDetached(std::function<void()> work);

// What the exception in flight says, as a failure.
SystemError CurrentException();

}  // namespace background

// One function that runs on a thread of its own, for foreign code that may never return. Its owner asks now
// and then whether it is done. An owner that goes, or abandons it, does not wait: the thread keeps what it
// works with alive, drops the result, and ends when the foreign code returns.
//
// So the function must own, or share, all that it uses. What it captured is gone when IsDone() says true.
template <class T>
class BackgroundJob {
public:
    // Starts at once. An exception of the function becomes its failure, as does a thread that cannot start.
    explicit BackgroundJob(std::function<Result<T>()> work) : m_state(std::make_shared<State>())
    {
        const auto started = background::RunDetached([state = m_state, work = std::move(work)]() mutable {
            state->result.emplace(Call(work));
            work = nullptr;
            state->end.Give();
        });
        if (started) return;
        m_state->result.emplace(Fail(started.error()));
        m_state->end.Give();
    }

    bool IsDone() const { return m_state != nullptr && m_state->end.IsGiven(); }
    // Blocks until it is done, `most` at the longest; whether it is.
    bool Wait(std::chrono::milliseconds most) { return m_state != nullptr && m_state->end.Wait(most); }
    // Once, when it is done.
    Result<T> Take() { return std::move(*std::exchange(m_state, nullptr)->result); }
    void Abandon() { m_state = nullptr; }  // it is never done then

private:
    struct State {
        std::optional<Result<T>> result;  // the thread's, until the end is given
        background::EndSignal end;
    };

    static Result<T> Call(const std::function<Result<T>()>& work)
    {
        try {
            return work();
        } catch (...) {
            return Fail(background::CurrentException());
        }
    }

    std::shared_ptr<State> m_state;
};
