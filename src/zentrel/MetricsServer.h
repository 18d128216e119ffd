#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <thread>

namespace zentrel {

// Answers GET /metrics over HTTP/1.1 to a few clients at once, one request on each connection. One thread,
// which sleeps until somebody comes.
class MetricsServer {
public:
    using Time = std::chrono::milliseconds;
    // Called on the server's thread for every request.
    using Text = std::function<Result<std::string>()>;

    // listener: a listening stream socket. A client that takes longer than `patience` in all is cut off.
    static Result<std::unique_ptr<MetricsServer>> Start(FileHandle listener, Text text,
                                                        Time patience = std::chrono::seconds(5));
    ~MetricsServer();
    MetricsServer(const MetricsServer&) = delete;
    MetricsServer& operator=(const MetricsServer&) = delete;

private:
    using Clock = std::chrono::steady_clock;
    class Client;

    MetricsServer(FileHandle listener, FileHandle stop, Text text, Time patience);
    void Run();
    void Admit();
    bool IsFull() const;
    int TimeLeft() const;

    const FileHandle m_listener;
    const FileHandle m_stop;  // readable when the thread should end
    const Text m_text;
    const Time m_patience;
    std::list<Client> m_clients;
    Clock::time_point m_admitsFrom{};  // after it had no room
    std::thread m_thread;
};

}  // namespace zentrel
