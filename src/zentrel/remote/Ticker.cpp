#include "zentrel/remote/Ticker.h"

#include <vector>

namespace zentrel {

Ticker::~Ticker()
{
    {
        const std::lock_guard guard(m_mutex);
        m_isOver = true;
    }
    m_news.notify_one();
    m_thread.join();
}

void Ticker::Add(const std::shared_ptr<Ticking>& one)
{
    const std::lock_guard guard(m_mutex);
    m_all.emplace(one.get(), one);
    // Many short calls a second wake the thread once a second, not each time.
    if (m_sleeps) m_news.notify_one();
}

void Ticker::Remove(const Ticking* one)
{
    const std::lock_guard guard(m_mutex);
    m_all.erase(one);
}

void Ticker::Run()
{
    std::unique_lock guard(m_mutex);
    while (!m_isOver) {
        m_sleeps = true;
        m_news.wait(guard, [this] { return m_isOver || !m_all.empty(); });
        m_sleeps = false;
        m_news.wait_for(guard, std::chrono::seconds(1), [this] { return m_isOver; });
        if (!m_isOver) TickAll(guard);
    }
}

// Without the mutex, since the last owner of one of them may be here.
void Ticker::TickAll(std::unique_lock<std::mutex>& guard)
{
    std::vector<std::shared_ptr<Ticking>> all;
    for (const auto& [key, one] : m_all)
        if (auto alive = one.lock()) all.push_back(std::move(alive));
    guard.unlock();
    const auto now = std::chrono::steady_clock::now();
    for (const auto& one : all) one->Tick(now);
    all.clear();
    guard.lock();
}

}  // namespace zentrel
