#include "zentrel/daemon/Notify.h"

#include "zentrel/FileHandle.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace zentrel {

void NotifyManager(std::string_view text)
{
    const char* const place = std::getenv("NOTIFY_SOCKET");
    const std::string_view name = place == nullptr ? "" : place;
    sockaddr_un address{};
    if ((!name.starts_with('/') && !name.starts_with('@')) || name.size() >= sizeof address.sun_path) return;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    if (name.front() == '@') address.sun_path[0] = '\0';
    const FileHandle file(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!file) return;
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    [[maybe_unused]] const auto sent = sendto(file.Get(), text.data(), text.size(), MSG_NOSIGNAL,
                                              reinterpret_cast<const sockaddr*>(&address), size);
}

std::string MonotonicTimeLine()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return "MONOTONIC_USEC=" + std::to_string(now.tv_sec * 1'000'000 + now.tv_nsec / 1'000);
}

}  // namespace zentrel
