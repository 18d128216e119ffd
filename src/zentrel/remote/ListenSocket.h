#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"

#include <cstdint>
#include <filesystem>
#include <string>

#include <sys/types.h>

namespace zentrel {

inline constexpr std::size_t kLongestSocketPath = 103;

// A listening Unix socket with these permissions from its first moment. What a dead server left under the
// name is taken over. SharingViolation: a living one listens there; AlreadyExists: no socket has the name;
// InvalidName: the path is too long.
Result<FileHandle> ListenUnix(const std::filesystem::path& path, mode_t mode);

// A listening TCP socket on a numeric address; "::" takes IPv4 too. port 0: any that is free.
Result<FileHandle> ListenTcp(const std::string& address, std::uint16_t port);

std::uint16_t PortOf(const FileHandle& socket);

// Whether only this machine reaches the address. InvalidParameter when it is none.
Result<bool> IsLoopback(const std::string& address);

// "10.0.0.5:50112", "[::1]:50112"; empty for a Unix socket.
std::string RemoteAddress(int socket);

}  // namespace zentrel
