#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>

namespace zentrel {

// Something that wants to look at the clock every second while it lives.
class Ticking {
public:
    virtual ~Ticking() = default;
    virtual void Tick(std::chrono::steady_clock::time_point now) = 0;
};

// Calls all of them on a thread of its own, which sleeps for good while there are none.
class Ticker {
public:
    Ticker() : m_thread([this] { Run(); }) {}
    ~Ticker();
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;

    void Add(const std::shared_ptr<Ticking>& one);
    void Remove(const Ticking* one);  // also from its destructor

private:
    void Run();
    void TickAll(std::unique_lock<std::mutex>& guard);

    std::mutex m_mutex;
    std::condition_variable m_news;
    std::unordered_map<const Ticking*, std::weak_ptr<Ticking>> m_all;
    bool m_sleeps = true;
    bool m_isOver = false;
    std::thread m_thread;
};

}  // namespace zentrel
