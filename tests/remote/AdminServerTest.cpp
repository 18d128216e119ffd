#include "remote/AdminRig.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

namespace v1 = zentrel::v1;
using zentrel::Role;
using Stub = v1::Administration::Stub;

class AdminServer : public AdminRig {};

TEST_F(AdminServer, RefusesPathsOutOfTheTreeAndRequestsThatAreTooLarge)
{
    Start();
    const auto stub = Connect(kAdmins);
    const std::string deep(std::size_t{32} << 10U, 'a');
    struct {
        std::string path;
        std::uint32_t code;
    } const cases[] = {{"../../etc/passwd", 123}, {std::string("LM/a\0b", 6), 123},
                       {"LM/\xFF", 123},          {"LM/" + deep, 123},
                       {"LM/nowhere", 2},         {std::string(70'000, '/'), 100'008}};
    for (const auto& [path, code] : cases) {
        std::uint32_t stream = 0;
        ReadSubtree(*stub, path, &stream);
        EXPECT_EQ(Ask(*stub, &Stub::OpenKey, Key(path)), code) << path.substr(0, 40);
        EXPECT_EQ(stream, code) << path.substr(0, 40);
        EXPECT_EQ(Ask(*stub, &Stub::DeleteEntry, Key(path)), code) << path.substr(0, 40);
        EXPECT_EQ(DeleteTree(*stub, path), code) << path.substr(0, 40);
    }
    EXPECT_EQ(DeleteTree(*stub, ""), 123U) << "the whole metabase";
}

TEST_F(AdminServer, ChecksTheRoleOfEveryChangeAndWritesItDown)
{
    Start();
    ASSERT_TRUE(services->Start(zentrel::kRemoteReading));
    const std::string entry = m_root + "/dir1/page";
    std::size_t lines = 0;
    for (const auto role : {Role::Viewer, Role::Operator, Role::Admin}) {
        const auto stub = Connect(kTls, As(role, "anna \" role=admin"));
        const auto number = static_cast<std::uint32_t>(role);
        const auto below = role >= Role::Operator ? 0U : 5U;
        const auto above = role == Role::Admin ? 0U : 5U;
        EXPECT_EQ(Ask(*stub, &Stub::ReadCounters, v1::Nothing()), 0U);
        EXPECT_EQ(Ask(*stub, &Stub::DeleteEntry, Key(entry + std::to_string(1 + 3 * number))), below);
        EXPECT_EQ(DeleteTree(*stub, m_root + "/dir" + std::to_string(role == Role::Admin ? 2 : 0)), below);
        EXPECT_EQ(Ask(*stub, &Stub::ResetCounters, v1::Nothing()), below);
        for (const char* const path : {"LM/W3SVC/1/Root", "LM/W3SVC/1", "LM/W3SVC", "LM"})
            EXPECT_EQ(DeleteTree(*stub, path), above) << number << ' ' << path;
        EXPECT_EQ(Ask(*stub, &Stub::OpenService, ServiceNamed("remoteregistry", 0x80000004)), 0U);
        EXPECT_EQ(Ask(*stub, &Stub::OpenService, ServiceNamed("RemoteRegistry", 0xA0000000)), above);
        EXPECT_EQ(Ask(*stub, &Stub::StopService, ServiceNamed("RemoteRegistry")), above);
        EXPECT_EQ(Ask(*stub, &Stub::StartService, ServiceNamed("RemoteRegistry")), above);
        EXPECT_EQ(Audit().size(), lines += role == Role::Admin ? 9 : 10) << "for each change";
    }
    const auto audit = Audit();
    for (const auto& line : audit)
        EXPECT_TRUE(line.starts_with("who=\"anna \\x22 role=admin\" from=")) << line;
    EXPECT_NE(audit[0].find("role=viewer what=DeleteEntry path=\"" + entry + "4\" deleted=0 outcome=refused"),
              std::string::npos)
        << audit[0];
    EXPECT_NE(
        audit[11].find("role=operator what=DeleteTree path=\"" + m_root + "/dir0\" deleted=10 outcome=done"),
        std::string::npos)
        << audit[11];
    EXPECT_NE(audit[7].find("role=viewer what=OpenService path=\"RemoteRegistry\" outcome=refused error=5"),
              std::string::npos)
        << audit[7];

    const auto viewer = Connect(kViewers);
    ASSERT_TRUE(services->Stop(zentrel::kRemoteReading));
    EXPECT_EQ(Ask(*Connect(kTls, As(Role::Admin)), &Stub::ReadCounters, v1::Nothing()), 5U);
    EXPECT_EQ(Ask(*viewer, &Stub::ReadCounters, v1::Nothing()), 0U) << "on this machine";
    EXPECT_EQ(DeleteTree(*viewer, "LM\nforged"), 5U);
    EXPECT_EQ(Ask(*Connect(kAdmins), &Stub::DeleteEntry, Key(m_root + "/dir1/nothing")), 2U);
    const auto after = Audit();
    ASSERT_EQ(after.size(), lines + 2);
    const auto user = "who=\"uid " + std::to_string(getuid()) + "\" from=\"unix:\" role=";
    EXPECT_EQ(after[lines], user + "viewer what=DeleteTree path=\"LM\\x0aforged\" outcome=refused error=5");
    EXPECT_TRUE(after[lines + 1].starts_with(user + "admin what=DeleteEntry")) << after[lines + 1];
    EXPECT_TRUE(after[lines + 1].ends_with("deleted=0 outcome=failed error=2")) << after[lines + 1];

    for (int i = 0; i < 150; ++i) EXPECT_EQ(Ask(*viewer, &Stub::DeleteEntry, Key("LM/1")), 5U);
    const auto flooded = Audit();
    ASSERT_EQ(flooded.size(), lines + 2 + 99) << "a hundred refusals a minute";
    EXPECT_TRUE(flooded.back().ends_with("more=counted")) << flooded.back();
    EXPECT_EQ(Ask(*Connect(kAdmins), &Stub::ResetCounters, v1::Nothing()), 0U);
    EXPECT_TRUE(Audit().back().ends_with("what=ResetCounters path=\"\" outcome=done"));
}

TEST_F(AdminServer, LetsNobodyInWithoutTheRightCertificate)
{
    Start();
    const auto other = *zentrel::MakeAuthority("other", 30);
    const auto hello = [this](std::shared_ptr<grpc::ChannelCredentials> credentials) {
        v1::HelloRequest request;
        request.set_version(1);
        return Ask(*Connect(kTls, std::move(credentials)), &Stub::Hello, request);
    };
    EXPECT_EQ(hello(As(Role::Viewer)), 0U);
    EXPECT_EQ(hello(grpc::SslCredentials({authority.certificate, {}, {}})), 100'014U) << "none";
    EXPECT_EQ(hello(As(Role::Admin, "mallory", &other)), 100'014U) << "somebody else's";
    EXPECT_EQ(hello(grpc::SslCredentials({authority.certificate, serverPair.key, serverPair.certificate})),
              100'014U)
        << "a server's";
    EXPECT_EQ(hello(nullptr), 100'014U) << "no TLS";
}

TEST_F(AdminServer, SpeaksTls13AndNothingOlder)
{
    Start();
    const auto pair = *zentrel::MakeClientCertificate(authority, "alice", Role::Viewer, 30);
    std::ofstream(Path("c.pem")) << pair.certificate << pair.key;
    for (const auto& [version, works] : {std::pair("-tls1_3", true), std::pair("-tls1_2", false)}) {
        const auto command = "openssl s_client -connect " + Target(kTls) + " -cert " +
                             Path("c.pem").string() + " -alpn h2 " + version + " </dev/null >" +
                             Path("out").string() + " 2>&1";
        [[maybe_unused]] const auto code = std::system(command.c_str());
        std::ifstream file(Path("out"));
        std::stringstream text;
        text << file.rdbuf();
        ASSERT_NE(text.str().find("CONNECTED"), std::string::npos) << text.str();
        EXPECT_EQ(text.str().find("Cipher is TLS_AES") != std::string::npos, works) << text.str();
    }
}

TEST_F(AdminServer, CutsOffAClientThatNeverReadsWhileOthersAreServed)
{
    const auto path = [this](std::uint32_t i) { return m_root + "/bulk/" + std::to_string(i); };
    PutEntries(1'000, 20'000, path, 1'000);
    Start();
    options.limits.stall = std::chrono::milliseconds(1'500);
    options.limits.streamsPerClient = 8;
    options.limits.calls = 16;
    ASSERT_TRUE(server->Reload(options).value());
    const auto channel = Dial(kTls, As(Role::Viewer, "sloth"));
    const auto sloth = v1::Administration::NewStub(channel);
    std::vector<std::unique_ptr<grpc::ClientContext>> contexts;
    std::vector<std::unique_ptr<grpc::ClientReader<v1::SubtreeBatch>>> streams;
    for (int i = 0; i < 8; ++i) {
        contexts.push_back(std::make_unique<grpc::ClientContext>());
        streams.push_back(sloth->OpenSubtree(contexts.back().get(), Key("LM/W3SVC/1")));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    std::uint32_t ninth = 0;
    ReadSubtree(*sloth, "LM/W3SVC/1", &ninth);
    EXPECT_EQ(ninth, 100'008U) << "no more streams for this one";
    EXPECT_EQ(Ask(*sloth, &Stub::OpenKey, Key("LM")), 100'008U) << "nor calls";
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_GT(ReadSubtree(*Connect(kTls, As(Role::Viewer, "busy")), "LM/W3SVC/1").size(), 20'000'000U);
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(1'400)) << "not held up";

    std::this_thread::sleep_for(std::chrono::seconds(3));
    options.limits.longest = std::chrono::seconds(1);
    ASSERT_TRUE(server->Reload(options).value());
    ReadSubtree(*sloth, "LM/W3SVC/1", &ninth);
    EXPECT_EQ(ninth, 0U) << "the places are free again";
    contexts.push_back(std::make_unique<grpc::ClientContext>());
    streams.push_back(sloth->OpenSubtree(contexts.back().get(), Key("LM/W3SVC/1")));
    for (auto& stream : streams) {
        for (v1::SubtreeBatch batch; stream->Read(&batch);)
            std::this_thread::sleep_for(std::chrono::milliseconds(stream == streams.back() ? 100 : 0));
        EXPECT_FALSE(stream->Finish().ok()) << "one drips on, and is cut off all the same";
    }
}

TEST_F(AdminServer, AThousandConnectionsDoNoHarm)
{
    Start();
    const auto channel = Dial(kTls, As(Role::Viewer));
    const auto friendly = v1::Administration::NewStub(channel);
    v1::HelloRequest hello;
    hello.set_version(1);
    ASSERT_EQ(Ask(*friendly, &Stub::Hello, hello), 0U);
    std::vector<zentrel::FileHandle> crowd;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(server->Port(kTls));
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto before = descriptors();
    for (int i = 0; i < 1000; ++i) {
        crowd.emplace_back(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        ASSERT_EQ(connect(crowd.back().Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0) << i;
        if (i % 100 != 0) continue;
        ASSERT_EQ(Ask(*friendly, &Stub::OpenKey, Key("LM")), 0U) << i;
    }
    EXPECT_EQ(Ask(*Connect(kTls, As(Role::Viewer)), &Stub::Hello, hello), 0U) << "a newcomer";
    EXPECT_EQ(channel->GetState(false), GRPC_CHANNEL_READY) << "who said hello did not have to go";
    EXPECT_LT(descriptors() - before - 1000, 200) << "the others were turned away";
    crowd.clear();
    for (int i = 0; i < 100 && descriptors() - before > 8; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_LE(descriptors() - before, 8) << "nothing is kept of who has gone";
}

TEST_F(AdminServer, ADeletionThatWaitsForItsTurnSendsNews)
{
    Start();
    std::vector<v1::DeleteProgress> news;
    std::thread waiting;
    const auto holdUp = [&](std::uint64_t) {
        waiting = std::thread([&] { EXPECT_EQ(DeleteTree(*Connect(kAdmins), m_root + "/dir2", &news), 0U); });
        std::this_thread::sleep_for(std::chrono::milliseconds(2'500));
        return true;
    };
    EXPECT_EQ(service->DeleteTree(m_root + "/dir1", holdUp).value(), 10U);
    waiting.join();
    ASSERT_GE(news.size(), 2U) << "one a second, then the end";
    EXPECT_EQ(news.back().deleted(), 10U);
}

TEST_F(AdminServer, TakesOverDeadSocketsOnlyAndKeepsTheirModes)
{
    Start();
    struct stat status {};
    ASSERT_EQ(stat(options.listeners[kAdmins].path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0660U);
    ASSERT_EQ(stat(options.listeners[kViewers].path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0666U);

    auto more = options;
    more.listeners.resize(1);
    const auto start = [&] { return zentrel::AdminServer::Start(service, services, more); };
    EXPECT_EQ(start().error().code, Code::SharingViolation);
    EXPECT_EQ(Ask(*Connect(kAdmins), &Stub::OpenKey, Key("LM")), 0U) << "the living one goes on";
    more.listeners[0].path = Path("file");
    std::ofstream(Path("file")) << "precious";
    EXPECT_EQ(start().error().code, Code::AlreadyExists);
}

TEST_F(AdminServer, AReloadTakesOverCertificatesAndRefusesBadOnes)
{
    Start();
    v1::HelloRequest hello;
    hello.set_version(1);
    const auto old = authority;
    authority = *zentrel::MakeAuthority("new", 30);
    const auto fresh = *zentrel::MakeServerCertificate(authority, {"127.0.0.1"}, 30);
    auto bad = options;
    bad.listeners[kTls].tls->key = fresh.key;
    EXPECT_EQ(server->Reload(bad).error().code, Code::InvalidData) << "another certificate's key";
    bad = options;
    bad.listeners.pop_back();
    EXPECT_FALSE(server->Reload(bad).value()) << "needs a restart";
    const auto stranger = As(Role::Viewer);
    EXPECT_EQ(Ask(*Connect(kTls, stranger), &Stub::Hello, hello), 100'014U) << "nothing has changed yet";

    options.listeners[kTls].tls = {fresh.certificate, fresh.key, authority.certificate};
    ASSERT_TRUE(server->Reload(options).value());
    EXPECT_EQ(Ask(*Connect(kTls, As(Role::Viewer)), &Stub::Hello, hello), 0U);
    EXPECT_EQ(Ask(*Connect(kTls, As(Role::Viewer, "late", &old)), &Stub::Hello, hello), 100'014U);
}
