#include "support/LyingServer.h"
#include "support/Relay.h"
#include "support/ScanRig.h"
#include "support/TestStore.h"
#include "zentrel/EmbeddedTransport.h"
#include "zentrel/remote/AdminServer.h"
#include "zentrel/remote/Certificates.h"

#include <thread>

namespace {

using namespace zentrel;
using Clock = std::chrono::steady_clock;

KeyPair Authority()
{
    static const auto pair = *MakeAuthority("Test authority", 2);
    return pair;
}

// A server of a small cache: on a Unix socket for administrators, on one for viewers, and with TLS.
class Remote : public ::testing::Test {
protected:
    Remote()
    {
        m_store.PutSite(1, "First");
        for (const char* name : {"a.gif", "b/c.txt", "b/d e.txt", "\xC3\xBC.html"})
            m_store.Put("LM/W3SVC/1/Root/" + std::string(name), TestStore::Entry(++m_id, 1000, 100));
        m_store.Put("LM/W3SVC/1/Root/b/c.txt/0011223344556677", TestStore::Variant(2000, 100));
        m_service = *Service::Open(m_store.Folder(), Service::Role::Writer);
        Start();
    }

    void Start()
    {
        const auto pair = *MakeServerCertificate(Authority(), {"127.0.0.1", "web01.example"}, 2);
        AdminOptions options;
        options.serverName = "HERE";
        options.audit = m_store.Folder() / "audit.log";
        options.listeners.resize(4);
        options.listeners[0].path = Socket();
        options.listeners[1].path = m_store.Folder() / "viewer.sock";
        options.listeners[1].role = Role::Viewer;
        options.listeners[2].address = "127.0.0.1";
        options.listeners[3].address = "::1";
        for (const int tcp : {2, 3})
            options.listeners[static_cast<std::size_t>(tcp)].tls =
                AdminTls{pair.certificate, pair.key, Authority().certificate};
        auto started = AdminServer::Start(m_service, std::make_shared<ServiceTable>(), options);
        ASSERT_TRUE(started) << started.error().description;
        m_server = std::move(*started);
    }

    std::filesystem::path Socket() const { return m_store.Folder() / "admin.sock"; }
    RemoteTarget Local(const char* socket = "admin.sock") const
    {
        RemoteTarget target;
        target.socket = m_store.Folder() / socket;
        return target;
    }
    RemoteTarget Tls(Role role = Role::Admin, const char* host = "127.0.0.1") const
    {
        const auto client = *MakeClientCertificate(Authority(), "tester", role, 2);
        RemoteTarget target;
        target.host = host;
        target.port = m_server->Port(std::string_view(host) == "::1" ? 3 : 2);
        target.authority = Authority().certificate;
        target.certificate = client.certificate;
        target.key = client.key;
        return target;
    }
    static std::shared_ptr<Transport> To(RemoteTarget target)
    {
        return std::make_shared<RemoteTransport>(std::move(target));
    }

    TestStore m_store;
    std::uint32_t m_id = 0;
    std::shared_ptr<Service> m_service;
    std::unique_ptr<AdminServer> m_server;
};

std::string Told(const SystemError& error)
{
    return std::to_string(error.Plain()) + error.description;
}

template <class Value, class Show>
std::string Told(const Result<Value>& result, Show&& show)
{
    return result ? show(*result) : Told(result.error());
}

// What a session says to many questions, as one text.
std::string Answers(Session& session)
{
    std::string told;
    const auto add = [&told](std::string text) { (told += std::move(text)) += '\n'; };
    for (const char* path :
         {"", "LM/W3SVC/1", "/LM/W3SVC/1/Root/", "LM/W3SVC/1/Root/b", "LM/gone", "a//b", ".."}) {
        const auto opened = session.OpenKey(path);
        add(opened ? "there" : Told(opened.error()));
        for (const auto view : {View::Server, View::Cache}) {
            add(Told(session.CountKeys(path, view),
                     [](std::uint32_t count) { return std::to_string(count); }));
            for (const char* after : {"", "a.gif"})
                add(Told(session.ListKeys(path, view, after, 2), [](const KeyPage& page) {
                    return ::testing::PrintToString(page.names) + (page.isLast ? "." : "...");
                }));
        }
        for (const auto id : {Prop::KeyType, Prop::ServerComment, Prop::CacheId})
            add(Told(session.GetData(path, id), [](const std::optional<Record>& record) {
                return record ? std::to_string(static_cast<int>(record->Type())) + std::string(record->Text())
                              : "none";
            }));
    }
    add(Told(session.GetCacheDir(), [](const std::string& dir) { return dir; }));
    return told;
}

TEST_F(Remote, EveryWayGivesTheSameAnswersAndTheSameTree)
{
    const auto embedded = std::make_shared<EmbeddedTransport>(m_service, "HERE");
    const auto expected = Answers(**embedded->Connect(""));
    ScanRig near(embedded);
    near.Rescan({1});
    ASSERT_EQ(near.contents.totals.Count, 4);
    auto otherName = Tls(Role::Viewer, "::1");
    otherName.certificateName = "web01.example";
    for (const auto& target : {Local(), Local("viewer.sock"), Tls(), otherName}) {
        const auto session = To(target)->Connect("shown");
        ASSERT_TRUE(session) << session.error().description;
        EXPECT_EQ((*session)->ServerName(), "shown");
        EXPECT_EQ((*session)->IsLocal(), target.IsLocal());
        EXPECT_EQ(Answers(**session), expected);
        ScanRig far(To(target));
        far.Rescan({1});
        EXPECT_EQ(far.Print(), near.Print());
        EXPECT_EQ((*session)->OpenSubtree("LM/gone").error().code, Code::FileNotFound);
    }
}

TEST_F(Remote, ChangesReachTheServerAndRolesAreKept)
{
    const auto viewer = *To(Tls(Role::Viewer))->Connect("v");
    for (const auto& refused : {viewer->DeleteEntry("LM/W3SVC/1/Root/a.gif"),
                                viewer->DeleteTree("LM/W3SVC/1/Root/b"), viewer->ResetCounters()})
        EXPECT_TRUE(!refused && refused.error().Is(Code::AccessDenied));
    const auto admin = *To(Tls())->Connect("a");
    EXPECT_TRUE(admin->DeleteEntry("LM/W3SVC/1/Root/a.gif"));
    EXPECT_EQ(admin->OpenKey("LM/W3SVC/1/Root/a.gif").error().code, Code::FileNotFound);
    EXPECT_TRUE(admin->DeleteTree("LM/W3SVC/1/Root/b"));
    EXPECT_EQ(*admin->CountKeys("LM/W3SVC/1/Root", View::Cache), 1);
    EXPECT_TRUE(admin->ResetCounters());
    EXPECT_TRUE((*To(Local())->Connect("l"))->ReadCounters());

    const auto asViewer = To(Tls(Role::Viewer));
    EXPECT_TRUE(asViewer->OpenServiceManager("", ServiceAccess::GenericRead));
    EXPECT_EQ(asViewer->OpenServiceManager("", 0xA0000000).error().code, Code::AccessDenied);
    const auto manager = To(Tls())->OpenServiceManager("", ServiceAccess::GenericRead);
    ASSERT_TRUE(manager);
    EXPECT_EQ((*manager)->OpenService("nobody", ServiceAccess::QueryStatus).error().code, 1060);
    EXPECT_EQ((*manager)->OpenService("a/b", ServiceAccess::QueryStatus).error().code, 123);
}

TEST_F(Remote, BothSidesMustBeWhoTheySay)
{
    const auto stranger = *MakeAuthority("Stranger", 2);
    auto wrongServer = Tls();
    wrongServer.authority = stranger.certificate;
    const auto wrongName = Tls(Role::Admin, "::1");  // not in the certificate
    auto wrongClient = Tls();
    const auto forged = *MakeClientCertificate(stranger, "tester", Role::Admin, 2);
    wrongClient.certificate = forged.certificate;
    wrongClient.key = forged.key;
    auto noClient = Tls();
    noClient.certificate = noClient.key = "";
    auto noTls = Tls();
    noTls.authority = "not PEM";
    auto swapped = Tls();
    std::swap(swapped.certificate, swapped.key);
    auto otherKey = Tls();
    otherKey.key = forged.key;
    auto many = Tls();
    for (int i = 0; i < 400; ++i) many.authority += stranger.certificate;
    EXPECT_TRUE(To(many)->Connect("s"))
        << "one of many authorities, and " << many.authority.size() << " bytes";
    const std::pair<RemoteTarget, const char*> cases[] = {
        {wrongServer, "not signed"},           {wrongName, "another name"},
        {wrongClient, "client's certificate"}, {noClient, "Look at ca, certificate"},
        {noTls, "Look at ca, certificate"},    {swapped, "The file of the certificate"},
        {otherKey, "not the certificate's"},
    };
    for (const auto& [target, what] : cases) {
        const auto session = To(target)->Connect("s");
        ASSERT_FALSE(session);
        EXPECT_EQ(session.error().code, Code::ServerUnavailable);
        EXPECT_NE(session.error().description.find(what), std::string::npos) << session.error().description;
    }
}

TEST_F(Remote, ALookUpThatFailsKeepsTheConnectDeadline)
{
    Deadlines deadlines;
    deadlines.connect = std::chrono::seconds(1);
    auto nowhere = Tls();
    nowhere.host = "no-such-host.invalid";
    const auto start = Clock::now();
    const auto session = RemoteTransport(nowhere, {}, deadlines).Connect("s");
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(1'500));
    ASSERT_FALSE(session);
    EXPECT_EQ(session.error().code, Code::ServerUnavailable);
    auto near = Tls();
    near.host = "localhost";
    near.certificateName = "web01.example";
    EXPECT_TRUE(To(near)->Connect("s")) << "the next one does not wait for it";
}

TEST_F(Remote, AServerThatGoesAwayIsToldAtOnceAndMayComeBack)
{
    const auto transport = To(Local());
    const auto session = *transport->Connect("s");
    ASSERT_TRUE(session->OpenKey("LM"));
    m_server.reset();
    const auto start = Clock::now();
    EXPECT_EQ(session->OpenKey("LM").error().code, Code::ServerUnavailable);
    EXPECT_EQ(session->GetData("LM", Prop::KeyType).error().code, Code::ServerUnavailable);
    EXPECT_EQ(transport->Connect("s").error().code, Code::ServerUnavailable);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(1));
    Start();
    EXPECT_TRUE((*transport->Connect("s"))->OpenKey("LM"));
}

// A stream with ever more entries, until the wire is cut.
TEST(RemoteScan, EndsWithWhatItFoundWhenTheServerDies)
{
    LyingServer server([](const std::string& call, const std::string&) -> std::optional<Answer> {
        if (call != "OpenSubtree") return std::nullopt;
        return Answer::Endless([](int index) {
            RowBatch rows;
            if (index == 0) rows.Add({0, 9, "1", {}});
            const auto entry = TestStore::Entry(1, 1000, 100);
            for (int i = 0; i < 500; ++i)
                rows.Add({1, 0, std::to_string(10'000'000 + index * 500 + i), entry.Packed()});
            return LyingServer::Batch(rows);
        });
    });
    Relay relay(server.Folder() / "relay.sock", server.Socket());
    RemoteTarget target;
    target.socket = server.Folder() / "relay.sock";
    const auto transport = std::make_shared<RemoteTransport>(target);
    ScanRig rig(transport);
    rig.onRun = [&] {
        if (rig.runs == 5'000) relay.Cut();
    };
    rig.Rescan({1});
    EXPECT_GT(rig.contents.totals.Count, 1'000);
    EXPECT_TRUE(rig.isShown);
    EXPECT_TRUE(transport->Connect("again"));
}

TEST(WhileWaiting, TheHookRunsWhileACallWaitsAndMayCallItself)
{
    std::atomic<int> waits = 0;
    LyingServer server([&](const std::string& call, const std::string&) -> std::optional<Answer> {
        if (call == "OpenKey") std::this_thread::sleep_for(std::chrono::milliseconds(waits.load()));
        return std::nullopt;
    });
    RemoteTarget target;
    target.socket = server.Socket();
    int runs = 0;
    std::shared_ptr<Session> session;
    bool isNested = false;
    RemoteTransport transport(target, [&] {
        ++runs;
        if (session == nullptr || isNested) return;
        isNested = true;
        EXPECT_TRUE(session->GetCacheDir());
        isNested = false;
    });
    session = *transport.Connect("s");
    runs = 0;
    for (int i = 0; i < 50; ++i) EXPECT_TRUE(session->GetCacheDir());
    EXPECT_LE(runs, 5);  // none but for a machine that is busy with other things
    waits = 200;
    runs = 0;
    EXPECT_TRUE(session->OpenKey("LM"));
    EXPECT_GE(runs, 4);
    EXPECT_LE(runs, 20);
}

TEST(WhileWaiting, AStreamAndAHangingConnectLetItRunToo)
{
    LyingServer server([](const std::string& call, const std::string&) -> std::optional<Answer> {
        return call == "Hello" ? std::nullopt : std::optional(Answer::Never());
    });
    Relay relay(server.Folder() / "relay.sock", server.Socket());
    RemoteTarget target;
    target.socket = server.Folder() / "relay.sock";
    Deadlines deadlines;
    deadlines.connect = deadlines.stall = std::chrono::milliseconds(300);
    int runs = 0;
    RemoteTransport transport(
        target, [&] { ++runs; }, deadlines);
    const auto session = *transport.Connect("s");
    runs = 0;
    const auto start = Clock::now();
    EXPECT_EQ(session->OpenSubtree("LM").error().code, Code::Timeout);
    EXPECT_GE(runs, 5);
    relay.Set(Relay::Mode::Hold);
    runs = 0;
    EXPECT_EQ(transport.Connect("s").error().code, Code::ServerUnavailable);
    EXPECT_GE(runs, 5);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(2));
}

}  // namespace
