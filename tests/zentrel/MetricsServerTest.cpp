#include "zentrel/MetricsServer.h"

#include "fuzz/Targets.h"
#include "platform/TempFolder.h"
#include "zentrel/MetricsRequest.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace zentrel;
using namespace std::chrono_literals;

namespace {

TEST(MetricsRequest, OnlyAPlainGetOfTheMetricsIsAnswered)
{
    using enum MetricsRequest;
    const std::string host = "Host: x\r\n\r\n";
    const std::pair<std::string, MetricsRequest> cases[] = {
        {"GET /metrics HTTP/1.1\r\n" + host, Metrics},
        {"GET /metrics HTTP/1.1\r\nAccept: */*\r\nhOST:\tx\r\nUser-Agent: \xC3\xBC (a; b)\r\n\r\n", Metrics},
        {"GET http://localhost:9280/metrics HTTP/1.1\r\n" + host, Metrics},
        {"GET /metrics HTTP/1.0\r\n\r\n", Metrics},
        {"POST /elsewhere HTTP/1.1\r\n" + host, OtherPath},
        {"HEAD /metrics HTTP/1.1\r\n" + host, OtherMethod},
        {"GET /metrics HTTP/1.1\r\nHost: x\r\n\r", Unfinished},
        {std::string(kLongestMetricsRequest - 1, 'a'), Unfinished},
        {std::string(kLongestMetricsRequest, 'a'), Malformed},
        {"GET /metrics HTTP/1.1\r\n\r\n", Malformed},  // no host
        {"GET /metrics HTTP/1.1\r\nHost: x\r\nHost: y\r\n\r\n", Malformed},
        {"GET /metrics HTTP/1.1\n", Malformed},
        {std::string("GET /metrics\0 HTTP/1.1\r\n", 24) + host, Malformed},
        {"GET /metrics HTTP/1.1\r\nA: b\r\n c\r\n" + host, Malformed},
        {"\x16\x03\x01\x02\r\n\r\n", Malformed},  // TLS
    };
    for (const auto& [bytes, request] : cases)
        EXPECT_EQ(ReadMetricsRequest(bytes), request) << bytes.substr(0, 100);
    for (const auto& file : std::filesystem::directory_iterator(FUZZ_CORPUS "/metrics_request")) {
        std::ifstream stream(file.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        fuzz::MetricsRequest(std::as_bytes(std::span(bytes)));
    }
}

class Scraped : public testing::Test {
protected:
    void SetUp() override
    {
        FileHandle listener(NewSocket());
        ASSERT_EQ(bind(listener.Get(), reinterpret_cast<const sockaddr*>(&m_address), sizeof m_address), 0);
        ASSERT_EQ(listen(listener.Get(), 100), 0);
        const auto text = [this]() -> Result<std::string> {
            if (isBroken) return Fail(Code::IoError, "test");
            return std::string(bytes, 'm');
        };
        auto started = MetricsServer::Start(std::move(listener), text, 700ms);
        ASSERT_TRUE(started);
        server = std::move(*started);
    }

    FileHandle Dial() const
    {
        FileHandle socket(NewSocket());
        EXPECT_EQ(connect(socket.Get(), reinterpret_cast<const sockaddr*>(&m_address), sizeof m_address), 0);
        return socket;
    }
    static void Say(const FileHandle& socket, const std::string& text)
    {
        std::size_t sent = 0;
        while (sent < text.size()) {
            const auto count = send(socket.Get(), text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
            if (count < 0) return;
            sent += static_cast<std::size_t>(count);
        }
    }
    static std::string Hear(const FileHandle& socket)
    {
        const auto heard = ReadToEnd(socket, 0, "test");
        return heard ? std::string(reinterpret_cast<const char*>(heard->data()), heard->size()) : "error";
    }
    std::string Ask(const std::string& text) const
    {
        const auto socket = Dial();
        Say(socket, text);
        return Hear(socket);
    }

    const std::string kGet = "GET /metrics HTTP/1.1\r\nHost: x\r\n\r\n";
    std::atomic<bool> isBroken = false;
    std::atomic<std::size_t> bytes = 5;
    std::unique_ptr<MetricsServer> server;

private:
    static FileHandle NewSocket() { return FileHandle(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)); }
    sockaddr_un Address() const
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        (m_folder.Path() / "s").string().copy(address.sun_path, sizeof address.sun_path - 1);
        return address;
    }

    TempFolder m_folder = std::move(*TempFolder::Make("zentrel-metrics"));
    sockaddr_un m_address = Address();
};

TEST_F(Scraped, AnswersOneRequestAndCloses)
{
    EXPECT_EQ(Ask(kGet), "HTTP/1.1 200 OK\r\nContent-Type: text/plain; version=0.0.4; charset=utf-8\r\n"
                         "Content-Length: 5\r\nConnection: close\r\n\r\nmmmmm");
    EXPECT_TRUE(Ask("GET / HTTP/1.0\r\n\r\n").starts_with("HTTP/1.1 404 "));
    const auto refused = Ask("POST /metrics HTTP/1.0\r\nContent-Length: 3\r\n\r\nabc");
    EXPECT_TRUE(refused.starts_with("HTTP/1.1 405 ") &&
                refused.find("\r\nAllow: GET\r\n") != std::string::npos);
    EXPECT_TRUE(Ask("nonsense\n").starts_with("HTTP/1.1 400 "));
    EXPECT_TRUE(Ask(std::string(40'000, 'a')).starts_with("HTTP/1.1 400 ")) << "though more came behind";
    EXPECT_TRUE(Ask(kGet + kGet).ends_with("\r\n\r\nmmmmm")) << "one is enough";
    isBroken = true;
    EXPECT_TRUE(Ask(kGet).starts_with("HTTP/1.1 503 "));
}

TEST_F(Scraped, SlowClientsAreCutOffAndKeepNobodyOutForLong)
{
    const auto begun = std::chrono::steady_clock::now();
    std::vector<FileHandle> idle(20);
    for (auto& socket : idle) socket = Dial();
    EXPECT_TRUE(Ask(kGet).ends_with("mmmmm")) << "behind 20 who say nothing, 8 of them at a time";
    for (const auto& socket : idle) EXPECT_EQ(Hear(socket), "");
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 5s);

    const auto drip = Dial();
    const auto start = std::chrono::steady_clock::now();
    pollfd ended{drip.Get(), POLLIN, 0};
    for (const char c : kGet + kGet) {
        if (poll(&ended, 1, 50) != 0) break;
        Say(drip, std::string(1, c));
    }
    const auto lasted = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(lasted > 600ms && lasted < 1500ms) << "each byte is no new chance";

    bytes = 5 << 20;
    const auto sloth = Dial();
    Say(sloth, kGet);
    std::this_thread::sleep_for(1s);
    EXPECT_LT(Hear(sloth).size(), bytes);
}

TEST_F(Scraped, EndsAtOnce)
{
    std::vector<FileHandle> clients(20);
    for (auto& socket : clients) socket = Dial();
    const auto begun = std::chrono::steady_clock::now();
    server.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 200ms);
}

}  // namespace
