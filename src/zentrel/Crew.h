#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace zentrel {

// Threads that work jobs off. One thread gives the jobs and takes their outcomes, in the order in which
// they end. Destroying it waits for the jobs that were begun and drops the others.
template <class Job, class Outcome>
class Crew {
public:
    // work: called by several threads at once, each with its own number below `threads`.
    using Work = std::function<Outcome(std::size_t thread, const Job& job)>;

    Crew(std::size_t threads, Work work) : m_work(std::move(work))
    {
        for (std::size_t i = 0; i < threads; ++i) m_threads.emplace_back([this, i] { Run(i); });
    }

    ~Crew()
    {
        {
            const std::lock_guard guard(m_mutex);
            m_isOver = true;
        }
        m_given.notify_all();
        for (auto& thread : m_threads) thread.join();
    }

    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    void Give(Job job)
    {
        {
            const std::lock_guard guard(m_mutex);
            m_jobs.push_back(std::move(job));
        }
        ++m_out;
        m_given.notify_one();
    }

    // Jobs given whose outcome was not taken.
    std::size_t Out() const { return m_out; }

    // Waits for an outcome; some job must be out.
    Outcome Take()
    {
        std::unique_lock guard(m_mutex);
        m_done.wait(guard, [this] { return !m_outcomes.empty(); });
        auto outcome = std::move(m_outcomes.front());
        m_outcomes.pop_front();
        --m_out;
        return outcome;
    }

private:
    void Run(std::size_t thread)
    {
        std::unique_lock guard(m_mutex);
        for (;;) {
            m_given.wait(guard, [this] { return m_isOver || !m_jobs.empty(); });
            if (m_isOver) return;
            const auto job = std::move(m_jobs.front());
            m_jobs.pop_front();
            guard.unlock();
            auto outcome = m_work(thread, job);
            guard.lock();
            m_outcomes.push_back(std::move(outcome));
            m_done.notify_one();
        }
    }

    const Work m_work;
    std::size_t m_out = 0;  // the giving thread's

    std::mutex m_mutex;  // guards what follows
    std::condition_variable m_given;
    std::condition_variable m_done;
    std::deque<Job> m_jobs;
    std::deque<Outcome> m_outcomes;
    bool m_isOver = false;

    std::vector<std::thread> m_threads;
};

}  // namespace zentrel
