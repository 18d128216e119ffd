#pragma once

#include "zentrel/remote/RemoteTransport.h"

#include <filesystem>
#include <sys/types.h>

// The administration of a data folder, in a process of its own, on a Unix socket and with mutual TLS on
// loopback; beside it a bare gRPC service that answers GetData with a fixed record, on the same transports.
class RemoteServer {
public:
    explicit RemoteServer(const std::filesystem::path& dataFolder);
    ~RemoteServer();
    RemoteServer(const RemoteServer&) = delete;
    RemoteServer& operator=(const RemoteServer&) = delete;

    bool IsUp() const { return m_isUp; }

private:
    pid_t m_process = -1;
    int m_life = -1;  // the process ends when this is closed
    bool m_isUp = false;
};

enum class Wire { Unix, Tls };

// Where the server of this data folder listens, and the bare service beside it.
zentrel::RemoteTarget ServerTarget(const std::filesystem::path& dataFolder, Wire wire);
zentrel::RemoteTarget EchoTarget(const std::filesystem::path& dataFolder, Wire wire);

// The process itself, as a probe.
int ProbeServe(const std::filesystem::path& dataFolder);
