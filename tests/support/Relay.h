#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <list>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

// Stands between a client and a server on Unix sockets and spoils the wire in the way that a test asks for.
class Relay {
public:
    enum class Mode {
        Pass,
        Drip,  // what the server sends goes on byte by byte, one in a while
        Hold,  // nothing goes on
    };

    Relay(std::filesystem::path at, std::filesystem::path onward)
        : m_onward(std::move(onward)),
          m_listener(Socket())
    {
        const auto address = Address(at);
        ::bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        ::listen(m_listener, 16);
        m_thread = std::thread([this] { Run(); });
    }
    ~Relay()
    {
        m_isOver = true;
        m_thread.join();
        Close();
        ::close(m_listener);
    }
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    void Set(Mode mode) { m_mode = mode; }
    void Cut() { m_isCut = true; }  // every connection there is

private:
    struct Pair {
        int client, server;
    };

    static int Socket() { return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0); }
    static sockaddr_un Address(const std::filesystem::path& at)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, at.c_str(), sizeof address.sun_path - 1);
        return address;
    }

    void Run()
    {
        while (!m_isOver) {
            if (m_isCut.exchange(false)) Close();
            std::vector<pollfd> ready{{m_listener, POLLIN, 0}};
            for (const auto& pair : m_pairs) {
                const short events = m_mode == Mode::Hold ? 0 : POLLIN;
                ready.push_back({pair.client, events, 0});
                ready.push_back({pair.server, events, 0});
            }
            ::poll(ready.data(), ready.size(), 5);
            std::size_t at = 1;
            for (auto pair = m_pairs.begin(); pair != m_pairs.end(); at += 2) {
                const bool isOpen = (ready[at].revents == 0 || Move(pair->client, pair->server, false)) &&
                                    (ready[at + 1].revents == 0 || Move(pair->server, pair->client, true));
                pair = isOpen ? std::next(pair) : Drop(pair);
            }
            if (ready.front().revents != 0) Accept();
        }
    }

    void Accept()
    {
        const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        const int server = Socket();
        const auto address = Address(m_onward);
        ::connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        m_pairs.push_back({client, server});
    }

    bool Move(int from, int to, bool isAnswer)
    {
        std::array<char, 65536> buffer;
        const bool drips = isAnswer && m_mode == Mode::Drip;
        if (drips && std::chrono::steady_clock::now() < m_nextDrop) return true;
        m_nextDrop = std::chrono::steady_clock::now() + std::chrono::milliseconds(20);
        const auto size = ::recv(from, buffer.data(), drips ? 1 : buffer.size(), 0);
        return size > 0 && ::send(to, buffer.data(), static_cast<std::size_t>(size), MSG_NOSIGNAL) == size;
    }

    std::list<Pair>::iterator Drop(std::list<Pair>::iterator pair)
    {
        ::close(pair->client);
        ::close(pair->server);
        return m_pairs.erase(pair);
    }
    void Close()
    {
        while (!m_pairs.empty()) Drop(m_pairs.begin());
    }

    std::filesystem::path m_onward;
    int m_listener;
    std::list<Pair> m_pairs;
    std::chrono::steady_clock::time_point m_nextDrop;
    std::atomic<Mode> m_mode = Mode::Pass;
    std::atomic<bool> m_isCut = false;
    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};
