#include "platform/BackgroundJob.h"

#include "base/SystemError.h"

#include <exception>
#include <new>
#include <system_error>
#include <thread>

namespace background {

void EndSignal::Give()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isGiven.store(true, std::memory_order_release);
    }
    m_given.notify_all();
}

bool EndSignal::Wait(std::chrono::milliseconds most)
{
    std::unique_lock lock(m_mutex);
    return m_given.wait_for(lock, most, [this] { return IsGiven(); });
}

Done RunDetached(std::function<void()> work)
{
    try {
        std::thread(std::move(work)).detach();
        return {};
    } catch (const std::system_error&) {
        return Fail(Code::OutOfMemory, "Thread");
    }
}

SystemError CurrentException()
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return {Code::OutOfMemory, "Thread", SystemText(Code::OutOfMemory)};
    } catch (const std::exception& exception) {
        return {Code::IoError, "Thread", exception.what()};
    } catch (...) {
        return {Code::IoError, "Thread", SystemText(Code::IoError)};
    }
}

}  // namespace background
