#include "zentrel/daemon/Wakeups.h"

#include <csignal>

#include <sys/epoll.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace zentrel {

namespace {

sigset_t HangUpSet()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGHUP);
    return set;
}

}  // namespace

Wakeups::Wakeups()
{
    const auto set = HangUpSet();
    m_hangUp = FileHandle(signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC));
    m_timer = FileHandle(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC));
    m_both = FileHandle(epoll_create1(EPOLL_CLOEXEC));
    for (const auto* file : {&m_hangUp, &m_timer}) {
        epoll_event event{};
        event.events = EPOLLIN;
        epoll_ctl(m_both.Get(), EPOLL_CTL_ADD, file->Get(), &event);
    }
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

Wakeups::~Wakeups()
{
    const auto set = HangUpSet();
    signalfd_siginfo info;
    while (read(m_hangUp.Get(), &info, sizeof info) == sizeof info) continue;
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void Wakeups::SetTimer(std::chrono::seconds time)
{
    itimerspec after{};
    after.it_value.tv_sec = time.count();
    timerfd_settime(m_timer.Get(), 0, &after, nullptr);
}

Wakeups::Cause Wakeups::Wait(StopSignals& signals)
{
    while (signals.WaitReadable(m_both.Get())) {
        signalfd_siginfo info;
        if (read(m_hangUp.Get(), &info, sizeof info) == sizeof info) return Cause::Reload;
        std::uint64_t expirations = 0;
        if (read(m_timer.Get(), &expirations, sizeof expirations) == sizeof expirations) return Cause::Timer;
    }
    return Cause::Stop;
}

}  // namespace zentrel
