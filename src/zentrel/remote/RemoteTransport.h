#pragma once

#include "zentrel/Role.h"
#include "zentrel/Session.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace zentrel {

// Runs about every 15 ms while a call waits for the server, on the calling thread; a call that is answered
// sooner never enters it. It may start other calls, of the same session too.
using WhileWaiting = std::function<void()>;

// How long the client waits. When one of these has passed, the connection counts as lost: later calls fail
// at once with ServerUnavailable, until somebody connects again.
struct Deadlines {
    using Time = std::chrono::milliseconds;

    Time connect{5'000};       // finding the host, connecting and the handshake together
    Time read{10'000};         // any call that only asks
    Time change{10'000};       // ResetCounters, services
    Time news{30'000};         // without a word of a deletion that runs
    Time deletion{3'600'000};  // a deletion in all
    Time stall{10'000};        // without a batch of a stream
    Time slow{30'000};         // waiting in all for a stream, besides a second for each KiB it brings
};

// Where a server listens and how to get in. Either a Unix socket or host, port and certificates.
struct RemoteTarget {
    std::filesystem::path socket;
    std::string host;  // name or address, an IPv6 one without brackets
    std::uint16_t port = kDefaultPort;
    std::string authority;         // PEM: who must have signed the server's certificate
    std::string certificate, key;  // PEM: this client's
    std::string certificateName;   // what the server's certificate must be made for; empty: the host

    bool IsLocal() const { return !socket.empty(); }
};

class Connection;

// Sessions with one server over gRPC: through a Unix socket without encryption, over TCP with mutual TLS 1.3
// (from the first such connection on, the whole process speaks nothing older).
// Everything happens on the calling thread; sessions and their streams live as long as they like.
//
// Besides the codes of the server, calls fail with ServerUnavailable (it is gone), Timeout (see Deadlines),
// InvalidData (it sent what Limits.h does not accept) and AccessDenied.
class RemoteTransport : public Transport {
public:
    explicit RemoteTransport(RemoteTarget target, WhileWaiting whileWaiting = {}, Deadlines deadlines = {});
    ~RemoteTransport() override;

    std::string LocalName() const override { return {}; }
    // The name is what the session is called; it does not choose the server.
    Result<std::shared_ptr<Session>> Connect(std::string_view server) override;
    // Uses the connection of a session that is alive, else one of its own.
    Result<std::unique_ptr<ServiceManager>> OpenServiceManager(std::string_view machine,
                                                               std::uint32_t access) override;

private:
    RemoteTarget m_target;
    WhileWaiting m_whileWaiting;
    Deadlines m_deadlines;
    std::weak_ptr<Connection> m_last;
};

}  // namespace zentrel
