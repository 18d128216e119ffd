#pragma once

#include "base/Result.h"
#include "zentrel/Role.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zentrel {

// What mutual TLS needs; PEM texts.
struct AdminTls {
    std::string certificate;  // the server's, with what leads to its authority
    std::string key;
    std::string clientAuthority;  // whose clients may come in
};

// One place where clients come in: a Unix socket when it has a path, else a TCP port.
struct AdminListener {
    std::filesystem::path path;
    unsigned mode = 0660;
    std::string address;     // numeric
    std::uint16_t port = 0;  // 0: any that is free
    std::optional<AdminTls> tls;
    Role role = Role::Admin;  // of every client; with TLS the certificate tells it
};

struct AdminLimits {
    std::size_t connections = 128;  // at each listener; one source gets half of them
    std::size_t calls = 256;        // under way at each listener; one client gets half of them
    std::size_t streams = 32;       // of these, walks over a subtree (readers of the store) and files sent
    std::size_t streamsPerClient = 16;
    std::chrono::milliseconds stall{10'000};     // a client that does not take what it asked for
    std::chrono::milliseconds longest{900'000};  // a walk, for which the store keeps old pages; a file
};

struct AdminOptions {
    std::string serverName;  // what clients are told
    std::vector<AdminListener> listeners;
    AdminLimits limits;
    std::filesystem::path audit;  // empty: standard error
};

// InvalidName: the path is too long for a socket. InvalidParameter: a port that other machines reach without
// client certificates, or a bad address; InvalidData: certificate, key or authority are none or do not fit
// each other.
Done CheckListener(const AdminListener& listener);

}  // namespace zentrel
