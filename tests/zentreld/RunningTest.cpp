#include "zentreld/DaemonRig.h"

#include <csignal>
#include <cstring>
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
};

TEST_F(Running, WithoutAConfigurationItListensInItsDataFolder)
{
    Program daemon(ZENTRELD, {"--data", (Folder() / "data").string()});
    ASSERT_TRUE(daemon.WaitForError("listens at"));
    EXPECT_EQ(Ask(*Connect("data/admin.sock"), &Stub::OpenKey, Key("LM/W3SVC")), 0U);
    daemon.Signal(SIGHUP);
    EXPECT_TRUE(daemon.WaitForError("no configuration file"));
    daemon.Signal(SIGTERM);
    EXPECT_EQ(daemon.Wait().exitCode, 0);
    EXPECT_FALSE(fs::exists(Folder() / "data/admin.sock"));
    EXPECT_EQ(RunProgram(ZENTRELD, {"--data", (Folder() / "data").string(), "--once"}).exitCode, 0);
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
    EXPECT_EQ(Ask(*admin, &Stub::StopService, ServiceNamed("Zentrel")), 5U);
    EXPECT_TRUE(daemon.WaitForError("audit: 20")) << "to standard error when no file is named";

    Configured("[local]\nsocket = elsewhere.sock\n");
    daemon.Signal(SIGHUP);
    EXPECT_TRUE(daemon.WaitForError("after a restart"));
    EXPECT_EQ(Ask(*admin, &Stub::OpenKey, Key("LM")), 0U);
}

TEST_F(Running, EndsCleanlyWithACallUnderWayAndStartsAgainAfterAKill)
{
    auto store = zentrel::Metabase::Open(Folder() / "data", zentrel::Metabase::Access::Write);
    auto txn = (*store)->BeginWrite();
    zentrel::PropertySet bulk;
    bulk.SetBytes(9999, zentrel::Bytes(10'000));
    for (int i = 0; i < 2'000; ++i)
        ASSERT_TRUE(txn->SetProperties("LM/W3SVC/1/Root/" + std::to_string(i), bulk));
    ASSERT_TRUE(txn->Commit());
    txn = Fail(Code::Cancelled, "test");
    store->reset();
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
