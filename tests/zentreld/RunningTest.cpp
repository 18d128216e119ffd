#include "zentreld/DaemonRig.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstring>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace fs = std::filesystem;
namespace v1 = zentrel::v1;
using Stub = v1::Administration::Stub;

class Running : public DaemonRig {
protected:
    static constexpr const char* kSockets = "[local]\nsocket = admin.sock\n[viewers]\nsocket = viewer.sock\n";

    zentrel::ServiceInfo RemoteReading() const
    {
        v1::ServiceStatus status;
        const auto code =
            Ask(*Connect("viewer.sock"), &Stub::QueryService, ServiceNamed("RemoteRegistry"), &status);
        EXPECT_EQ(code, 0U);
        return {status.name(), zentrel::ServiceState(status.state()), zentrel::ServiceStart(status.start())};
    }

    // What a scraper reads at a port of this machine; empty when nobody listens there.
    static std::string Scrape(std::uint16_t port)
    {
        const zentrel::FileHandle scraper(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (connect(scraper.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return {};
        const std::string request = "GET /metrics HTTP/1.1\r\nHost: localhost\r\n\r\n";
        EXPECT_TRUE(zentrel::WriteAll(scraper, std::as_bytes(std::span(request)), "test"));
        const auto heard = zentrel::ReadToEnd(scraper, 0, "test");
        return heard ? std::string(reinterpret_cast<const char*>(heard->data()), heard->size()) : "";
    }
};

TEST_F(Running, WithoutAConfigurationItListensInItsDataFolder)
{
    Program daemon(ZENTRELD, {"--data", (Folder() / "data").string()});
    ASSERT_TRUE(daemon.WaitForError("listens at"));
    EXPECT_EQ(Ask(*Connect("data/admin.sock"), &Stub::OpenKey, Key("LM/W3SVC")), 0U);
    daemon.Signal(SIGTERM);
    EXPECT_EQ(daemon.Wait().exitCode, 0);
    EXPECT_FALSE(fs::exists(Folder() / "data/admin.sock"));
}

TEST_F(Running, HangUpTakesOverWhatIsGoodAndKeepsTheOldWhereItIsBad)
{
    Program daemon(ZENTRELD,
                   Configured(std::string(kSockets) + "[service RemoteRegistry]\nstart = automatic\n"));
    ASSERT_TRUE(daemon.WaitForError("listens at " + (Folder() / "viewer.sock").string()));
    EXPECT_EQ(RemoteReading().state, zentrel::ServiceState::Running);
    Configured(std::string(kSockets) + "[service RemoteRegistry]\nstart = disabled\nnonsense = 1\n");
    daemon.Signal(SIGHUP);
    ASSERT_TRUE(
        daemon.WaitForError("stays as it was: " + (Folder() / "zentreld.conf").string() + ": line 9"));
    EXPECT_EQ(RemoteReading().start, zentrel::ServiceStart::Automatic);

    Configured(std::string(kSockets) + "[service RemoteRegistry]\nstart = disabled\n");
    daemon.Signal(SIGHUP);
    ASSERT_TRUE(daemon.WaitForError("was read again"));
    EXPECT_EQ(RemoteReading().start, zentrel::ServiceStart::Disabled);
    EXPECT_EQ(RemoteReading().state, zentrel::ServiceState::Running) << "what runs goes on";
    const auto admin = Connect("admin.sock");
    EXPECT_EQ(Ask(*admin, &Stub::StopService, ServiceNamed("RemoteRegistry")), 0U);
    EXPECT_EQ(Ask(*admin, &Stub::StartService, ServiceNamed("RemoteRegistry")), 1058U);
    EXPECT_TRUE(daemon.WaitForError("audit: 20")) << "to standard error when no file is named";

    Configured("[local]\nsocket = elsewhere.sock\n");
    daemon.Signal(SIGHUP);
    EXPECT_TRUE(daemon.WaitForError("after a restart"));
    EXPECT_EQ(Ask(*admin, &Stub::OpenKey, Key("LM")), 0U);
}

TEST_F(Running, EndsCleanlyWithACallUnderWayAndStartsAgainAfterAKill)
{
    zentrel::PropertySet bulk;
    bulk.SetBytes(9999, zentrel::Bytes(10'000));
    m_store.Write([&](auto& txn) {
        for (int i = 0; i < 2'000; ++i)
            ASSERT_TRUE(txn.SetProperties("LM/W3SVC/1/Root/" + std::to_string(i), bulk));
    });
    for (const int signal : {SIGKILL, SIGTERM}) {
        Program daemon(ZENTRELD, Configured(kSockets));
        ASSERT_TRUE(daemon.WaitForError("listens at " + (Folder() / "viewer.sock").string()));
        const auto stub = Connect("viewer.sock");
        grpc::ClientContext context;
        const auto stream = stub->OpenSubtree(&context, Key("LM/W3SVC/1"));
        v1::SubtreeBatch batch;
        EXPECT_TRUE(stream->Read(&batch));
        const auto begun = std::chrono::steady_clock::now();
        daemon.Signal(signal);
        const auto ended = daemon.Wait();
        EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(8));
        EXPECT_EQ(ended.exitCode, signal == SIGTERM ? 0 : 128 + SIGKILL) << ended.err;
        while (stream->Read(&batch)) continue;
        EXPECT_FALSE(stream->Finish().ok());
    }
    EXPECT_FALSE(fs::exists(Folder() / "admin.sock"));
}

TEST_F(Running, ScrapersReadTotalsThatNeitherResetNorKillTakesBack)
{
    {
        const auto service = *zentrel::Service::Open(Folder() / "data", zentrel::Service::Role::Writer);
        ASSERT_TRUE(service->CountResponse({{}, false, false, 12'345, 0}));
    }
    const auto port = zentrel::PortOf(*zentrel::ListenTcp("127.0.0.1", 0));  // free again
    const auto place = "127.0.0.1:" + std::to_string(port);
    const auto config = "metrics = " + place + '\n' + kSockets;
    const auto expectTotals = [port] {
        const auto told = Scrape(port);
        EXPECT_TRUE(told.starts_with("HTTP/1.1 200 OK\r\n"));
        EXPECT_NE(told.find("\nzentrel_responses_uncompressed_total 1\n"), std::string::npos) << told;
        EXPECT_NE(told.find("\nzentrel_response_uncompressed_bytes_total 12345\n"), std::string::npos);
    };
    for (const int signal : {SIGKILL, SIGTERM}) {
        Program daemon(ZENTRELD, Configured(config));
        ASSERT_TRUE(daemon.WaitForError("offers metrics at 127.0.0.1 port " + std::to_string(port)));
        expectTotals();
        EXPECT_TRUE(zentrel::ListenTcp("127.0.0.1", port).error().Is(Code::SharingViolation)) << "busy";
        ASSERT_EQ(Ask(*Connect("admin.sock"), &Stub::ResetCounters, v1::Nothing()), 0U);
        expectTotals();
        daemon.Signal(signal);
        daemon.Wait();
    }
    EXPECT_EQ(RunProgram(ZENTRELD, {"--metrics", "10.0.0.1:80"}).exitCode, 2);
}

TEST_F(Running, TellsTheServiceManagerWhatItDoes)
{
    const auto place = (Folder() / "notify").string();
    const zentrel::FileHandle manager(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strcpy(address.sun_path, place.c_str());
    ASSERT_EQ(bind(manager.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    const timeval patience{20, 0};
    setsockopt(manager.Get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    const auto next = [&manager] {
        char text[256];
        const auto size = recv(manager.Get(), text, sizeof text, 0);
        return std::string(text, size < 0 ? 0 : static_cast<std::size_t>(size));
    };
    setenv("NOTIFY_SOCKET", place.c_str(), 1);
    Program daemon(ZENTRELD, Configured(kSockets));
    unsetenv("NOTIFY_SOCKET");
    EXPECT_EQ(next(), "READY=1");
    EXPECT_EQ(Ask(*Connect("admin.sock"), &Stub::OpenKey, Key("LM")), 0U) << "ready is ready";
    daemon.Signal(SIGHUP);
    EXPECT_TRUE(next().starts_with("RELOADING=1\nMONOTONIC_USEC="));
    EXPECT_EQ(next(), "READY=1");
    daemon.Signal(SIGTERM);
    EXPECT_EQ(next(), "STOPPING=1");
    EXPECT_EQ(daemon.Wait().exitCode, 0);
}
