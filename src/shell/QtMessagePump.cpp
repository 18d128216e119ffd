#include "shell/QtMessagePump.h"

#include <QCoreApplication>

#include <time.h>

namespace {

constexpr std::int64_t kInterval = 15;  // milliseconds from the end of a visit to the next one
constexpr int kLongestVisit = 5;        // events that keep coming wait for the next visit

// Milliseconds since some start. The system's coarse clock goes on in steps of some milliseconds and costs a
// sixth of the fine one.
std::int64_t Now()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace

void QtMessagePump::Run()
{
    if (Now() >= m_next) Visit();
}

void QtMessagePump::Visit()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, kLongestVisit);
    m_next = Now() + kInterval;
}

void PaintWhileWaiting()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, kLongestVisit);
}
