#include "zentrel/remote/ListenSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "Listener";
constexpr int kBacklog = 1024;
constexpr std::string_view kSuffix = ".new";  // while it is made

union Address {
    sockaddr any;
    sockaddr_in v4;
    sockaddr_in6 v6;
    sockaddr_un local;
    sockaddr_storage space;
};

FileHandle NewSocket(int family)
{
    return FileHandle(socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

Result<Address> LocalAddress(const std::string& path)
{
    Address address{};
    address.local.sun_family = AF_UNIX;
    static_assert(kLongestSocketPath + kSuffix.size() < sizeof address.local.sun_path);
    if (path.empty() || path.size() > kLongestSocketPath + kSuffix.size())
        return Fail(Code::InvalidName, kSource, "The name of the socket is too long: " + path);
    std::memcpy(address.local.sun_path, path.data(), path.size());
    return address;
}

Result<Address> NumericAddress(const std::string& text, std::uint16_t port)
{
    Address address{};
    if (inet_pton(AF_INET, text.c_str(), &address.v4.sin_addr) == 1) {
        address.v4.sin_family = AF_INET;
        address.v4.sin_port = htons(port);
        return address;
    }
    if (inet_pton(AF_INET6, text.c_str(), &address.v6.sin6_addr) == 1) {
        address.v6.sin6_family = AF_INET6;
        address.v6.sin6_port = htons(port);
        return address;
    }
    return Fail(Code::InvalidParameter, kSource, "This is no numeric address: " + text);
}

// Whether the name is free to be taken: nothing there, or a socket that nobody listens on.
Done CheckFree(const std::string& path, const Address& address)
{
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) return {};
    if (!S_ISSOCK(status.st_mode))
        return Fail(Code::AlreadyExists, kSource, "There is something else than a socket at " + path);
    const auto probe = NewSocket(AF_UNIX);
    if (!probe) return FailErrno(errno, kSource, "Cannot make a socket");
    if (connect(probe.Get(), &address.any, sizeof address.local) != 0 && errno == ECONNREFUSED) return {};
    return Fail(Code::SharingViolation, kSource, "A living server listens at " + path);
}

}  // namespace

Result<FileHandle> ListenUnix(const std::filesystem::path& path, mode_t mode)
{
    const auto name = path.string();
    const auto made = name + std::string(kSuffix);
    const auto address = LocalAddress(name);
    const auto first = LocalAddress(made);
    if (!address || !first) return Fail(address ? first.error() : address.error());
    if (auto free = CheckFree(name, *address); !free) return Fail(free.error());
    auto socket = NewSocket(AF_UNIX);
    if (!socket) return FailErrno(errno, kSource, "Cannot make a socket");
    unlink(made.c_str());
    // Nobody can connect before it listens, and then it has its permissions already.
    if (bind(socket.Get(), &first->any, sizeof first->local) != 0 || chmod(made.c_str(), mode) != 0 ||
        listen(socket.Get(), kBacklog) != 0 || rename(made.c_str(), name.c_str()) != 0) {
        const auto error = errno;
        unlink(made.c_str());
        return FailErrno(error, kSource, "Cannot listen at " + name);
    }
    return socket;
}

Result<FileHandle> ListenTcp(const std::string& address, std::uint16_t port)
{
    const auto numeric = NumericAddress(address, port);
    if (!numeric) return Fail(numeric.error());
    const bool isV6 = numeric->any.sa_family == AF_INET6;
    auto socket = NewSocket(isV6 ? AF_INET6 : AF_INET);
    if (!socket) return FailErrno(errno, kSource, "Cannot make a socket");
    const int on = 1;
    const int off = 0;
    setsockopt(socket.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    setsockopt(socket.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);  // what is accepted inherits it
    if (isV6) setsockopt(socket.Get(), IPPROTO_IPV6, IPV6_V6ONLY, &off, sizeof off);
    const auto size = isV6 ? sizeof(sockaddr_in6) : sizeof(sockaddr_in);
    if (bind(socket.Get(), &numeric->any, static_cast<socklen_t>(size)) != 0 ||
        listen(socket.Get(), kBacklog) != 0)
        return FailErrno(errno, kSource, "Cannot listen on " + address + " port " + std::to_string(port));
    return socket;
}

std::uint16_t PortOf(const FileHandle& socket)
{
    Address address{};
    socklen_t size = sizeof address;
    if (getsockname(socket.Get(), &address.any, &size) != 0) return 0;
    if (address.any.sa_family == AF_INET) return ntohs(address.v4.sin_port);
    return address.any.sa_family == AF_INET6 ? ntohs(address.v6.sin6_port) : std::uint16_t{0};
}

Result<bool> IsLoopback(const std::string& address)
{
    const auto numeric = NumericAddress(address, 0);
    if (!numeric) return Fail(numeric.error());
    if (numeric->any.sa_family == AF_INET) return (ntohl(numeric->v4.sin_addr.s_addr) >> 24U) == 127;
    return IN6_IS_ADDR_LOOPBACK(&numeric->v6.sin6_addr) != 0;
}

std::string RemoteAddress(int socket)
{
    Address address{};
    socklen_t size = sizeof address;
    if (getpeername(socket, &address.any, &size) != 0) return {};
    char text[INET6_ADDRSTRLEN] = {};
    if (address.any.sa_family == AF_INET) {
        inet_ntop(AF_INET, &address.v4.sin_addr, text, sizeof text);
        return std::string(text) + ':' + std::to_string(ntohs(address.v4.sin_port));
    }
    if (address.any.sa_family != AF_INET6) return {};
    const auto port = ':' + std::to_string(ntohs(address.v6.sin6_port));
    if (IN6_IS_ADDR_V4MAPPED(&address.v6.sin6_addr)) {
        inet_ntop(AF_INET, address.v6.sin6_addr.s6_addr + 12, text, sizeof text);
        return text + port;
    }
    inet_ntop(AF_INET6, &address.v6.sin6_addr, text, sizeof text);
    return '[' + std::string(text) + ']' + port;
}

}  // namespace zentrel
