#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace zentrel {

// One thread that does what it is given, one thing after the other.
class WorkQueue {
public:
    WorkQueue() : m_thread([this] { Run(); }) {}
    ~WorkQueue() { Stop(); }
    WorkQueue(const WorkQueue&) = delete;
    WorkQueue& operator=(const WorkQueue&) = delete;

    void Add(std::function<void()> work)
    {
        {
            const std::lock_guard guard(m_mutex);
            m_work.push_back(std::move(work));
        }
        m_news.notify_one();
    }

    // Ends when all that was given is done; nothing may be added any more.
    void Stop()
    {
        if (!m_thread.joinable()) return;
        {
            const std::lock_guard guard(m_mutex);
            m_isOver = true;
        }
        m_news.notify_one();
        m_thread.join();
    }

private:
    void Run()
    {
        std::unique_lock guard(m_mutex);
        for (;;) {
            m_news.wait(guard, [this] { return m_isOver || !m_work.empty(); });
            if (m_work.empty()) return;
            auto work = std::move(m_work.front());
            m_work.pop_front();
            guard.unlock();
            work();
            work = nullptr;  // what it holds goes before the mutex is taken
            guard.lock();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_news;
    std::deque<std::function<void()>> m_work;
    bool m_isOver = false;
    std::thread m_thread;
};

}  // namespace zentrel
