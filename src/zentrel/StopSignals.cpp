#include "zentrel/StopSignals.h"

#include <csignal>

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace zentrel {

namespace {

sigset_t StopSet()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    return set;
}

}  // namespace

StopSignals::StopSignals()
{
    const auto set = StopSet();
    m_file = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_file >= 0) pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

StopSignals::~StopSignals()
{
    if (m_file < 0) return;
    Raised();  // what is taken here does not end the process afterwards
    close(m_file);
    const auto set = StopSet();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

bool StopSignals::Raised()
{
    signalfd_siginfo info;
    if (m_file >= 0 && read(m_file, &info, sizeof info) == sizeof info) m_raised = true;
    return m_raised;
}

bool StopSignals::WaitFor(std::chrono::milliseconds time)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + time;
    while (!Raised()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0) return false;
        pollfd wanted{m_file, POLLIN, 0};
        poll(&wanted, 1, static_cast<int>(std::min<long>(left.count(), 60'000)));
    }
    return true;
}

bool StopSignals::WaitReadable(int file)
{
    while (!Raised()) {
        std::array<pollfd, 2> wanted{pollfd{file, POLLIN, 0}, pollfd{m_file, POLLIN, 0}};
        if (poll(wanted.data(), wanted.size(), -1) < 0 && errno != EINTR) return true;
        if (wanted[0].revents != 0) return true;
    }
    return false;
}

}  // namespace zentrel
