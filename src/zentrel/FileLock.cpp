#include "zentrel/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace zentrel {

namespace {

tl::unexpected<SystemError> HeldBySomebody(const FileHandle& file)
{
    char text[16] = {};
    const auto length = pread(file.Get(), text, sizeof text - 1, 0);
    const auto holder = length > 0 ? " (pid " + std::string(text) + ")" : std::string();
    return Fail(Code::SharingViolation, "Service",
                "Another process" + holder + " is writing to this server's data.");
}

}  // namespace

Result<FileLock> FileLock::Acquire(const std::filesystem::path& file)
{
    FileHandle handle(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644));
    if (!handle) return FailErrno(errno, "Service", "Cannot open " + file.string());
    if (flock(handle.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) return HeldBySomebody(handle);
        return FailErrno(errno, "Service", "Cannot lock " + file.string());
    }
    // The number only serves the message above: the lock holds without it, on a full disk too.
    const auto number = std::to_string(getpid());
    if (ftruncate(handle.Get(), 0) == 0) [[maybe_unused]]
        const auto written = pwrite(handle.Get(), number.data(), number.size(), 0);
    return FileLock(std::move(handle));
}

}  // namespace zentrel
