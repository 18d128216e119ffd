#include "zentrel/MetricsServer.h"

#include "zentrel/MetricsRequest.h"
#include "zentrel/MetricsText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace zentrel {

namespace {

constexpr std::size_t kMostClients = 8;
constexpr std::size_t kMostIgnored = std::size_t{64} << 10U;  // bytes behind a request
constexpr std::chrono::milliseconds kNoRoomTime{500};

std::string Response(std::string_view status, std::string_view type, std::string_view body)
{
    std::string text = "HTTP/1.1 ";
    text.append(status).append("\r\nContent-Type: ").append(type);
    text.append("\r\nContent-Length: ").append(std::to_string(body.size()));
    if (status.starts_with("405")) text += "\r\nAllow: GET";
    return text.append("\r\nConnection: close\r\n\r\n").append(body);
}

std::string Refusal(std::string_view status)
{
    return Response(status, "text/plain", std::string(status) + '\n');
}

std::string AnswerTo(MetricsRequest request, const MetricsServer::Text& text)
{
    switch (request) {
    case MetricsRequest::Metrics:
        if (const auto metrics = text()) return Response("200 OK", kMetricsType, *metrics);
        return Refusal("503 Service Unavailable");
    case MetricsRequest::OtherPath: return Refusal("404 Not Found");
    case MetricsRequest::OtherMethod: return Refusal("405 Method Not Allowed");
    case MetricsRequest::Unfinished:
    case MetricsRequest::Malformed: break;
    }
    return Refusal("400 Bad Request");
}

}  // namespace

class MetricsServer::Client {
public:
    Client(FileHandle socket, Clock::time_point until) : m_socket(std::move(socket)), m_until(until) {}

    pollfd Wish() const { return {m_socket.Get(), static_cast<short>(IsWriting() ? POLLOUT : POLLIN), 0}; }
    Clock::time_point Until() const { return m_until; }

    // Goes on as far as the socket lets it; false: there is nothing left to do.
    bool GoOn(const Text& text)
    {
        if (m_answer.empty() && !ReadRequest(text)) return false;
        if (IsWriting() && !Write()) return false;
        return m_answer.empty() || IsWriting() || Ignore();
    }

private:
    bool IsWriting() const { return m_sent < m_answer.size(); }

    static bool IsNotYet(ssize_t count) { return count < 0 && (errno == EAGAIN || errno == EINTR); }

    bool ReadRequest(const Text& text)
    {
        std::array<char, 2048> bytes;
        const auto count = recv(m_socket.Get(), bytes.data(), bytes.size(), 0);
        if (count <= 0) return IsNotYet(count);
        m_request.append(bytes.data(), static_cast<std::size_t>(count));
        const auto request = ReadMetricsRequest(m_request);
        if (request != MetricsRequest::Unfinished) m_answer = AnswerTo(request, text);
        return true;
    }

    bool Write()
    {
        const auto count =
            send(m_socket.Get(), m_answer.data() + m_sent, m_answer.size() - m_sent, MSG_NOSIGNAL);
        if (count < 0) return IsNotYet(count);
        m_sent += static_cast<std::size_t>(count);
        return IsWriting() || shutdown(m_socket.Get(), SHUT_WR) == 0;
    }

    // To close a socket with bytes unread would take the answer back that is on its way.
    bool Ignore()
    {
        std::array<char, 8192> bytes;
        const auto count = recv(m_socket.Get(), bytes.data(), bytes.size(), 0);
        if (count <= 0) return IsNotYet(count);
        m_ignored += static_cast<std::size_t>(count);
        return m_ignored <= kMostIgnored;
    }

    FileHandle m_socket;
    Clock::time_point m_until;
    std::string m_request;
    std::string m_answer;  // empty: it has not asked yet
    std::size_t m_sent = 0;
    std::size_t m_ignored = 0;
};

MetricsServer::MetricsServer(FileHandle listener, FileHandle stop, Text text, Time patience)
    : m_listener(std::move(listener)),
      m_stop(std::move(stop)),
      m_text(std::move(text)),
      m_patience(patience),
      m_thread([this] { Run(); })
{
}

Result<std::unique_ptr<MetricsServer>> MetricsServer::Start(FileHandle listener, Text text, Time patience)
{
    FileHandle stop(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    const int flags = fcntl(listener.Get(), F_GETFL);
    if (!stop || flags < 0 || fcntl(listener.Get(), F_SETFL, flags | O_NONBLOCK) < 0)
        return FailErrno(errno, "Metrics", "Cannot listen for scrapers");
    return std::unique_ptr<MetricsServer>(
        new MetricsServer(std::move(listener), std::move(stop), std::move(text), patience));
}

MetricsServer::~MetricsServer()
{
    eventfd_write(m_stop.Get(), 1);
    m_thread.join();
}

bool MetricsServer::IsFull() const
{
    return m_clients.size() >= kMostClients || Clock::now() < m_admitsFrom;
}

// For poll: until the next client's time is over, or new ones are let in again; for ever when nobody is
// there.
int MetricsServer::TimeLeft() const
{
    const auto now = Clock::now();
    auto until = m_admitsFrom > now ? m_admitsFrom : Clock::time_point::max();
    for (const auto& client : m_clients) until = std::min(until, client.Until());
    if (until == Clock::time_point::max()) return -1;
    const auto left = std::chrono::duration_cast<Time>(until - now).count() + 1;
    return static_cast<int>(std::max<Time::rep>(left, 0));
}

void MetricsServer::Run()
{
    for (;;) {
        std::vector<pollfd> wishes{{m_stop.Get(), POLLIN, 0}, {IsFull() ? -1 : m_listener.Get(), POLLIN, 0}};
        for (const auto& client : m_clients) wishes.push_back(client.Wish());
        if (poll(wishes.data(), wishes.size(), TimeLeft()) < 0 && errno != EINTR) return;
        if (wishes[0].revents != 0) return;
        auto wish = wishes.begin() + 2;
        m_clients.remove_if([&](Client& client) {
            const bool isReady = (wish++)->revents != 0;
            return Clock::now() >= client.Until() || (isReady && !client.GoOn(m_text));
        });
        if (wishes[1].revents != 0) Admit();
    }
}

void MetricsServer::Admit()
{
    FileHandle socket(accept4(m_listener.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (socket)
        return static_cast<void>(m_clients.emplace_back(std::move(socket), Clock::now() + m_patience));
    const bool hasGone = errno == EAGAIN || errno == EINTR || errno == ECONNABORTED;
    if (!hasGone) m_admitsFrom = Clock::now() + kNoRoomTime;  // out of descriptors: not a busy loop
}

}  // namespace zentrel
