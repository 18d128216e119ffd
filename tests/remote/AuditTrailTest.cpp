#include "remote/AdminRig.h"

#include "zentrel/CachedFile.h"
#include "zentrel/remote/AuditLog.h"
#include "zentrel/remote/Doorkeeper.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <thread>

using zentrel::Role;

class AuditTrail : public AdminRig {};

// Whatever becomes of a deletion, its line tells how many entries went.
TEST_F(AuditTrail, ADeletionsLineTellsWhatWentAndHowItEnded)
{
    Start();
    const auto stub = Connect(kAdmins);
    const auto line = [this](const std::string& folder, const std::string& outcome,
                             const std::string& what = "DeleteTree") {
        return "who=\"uid " + std::to_string(getuid()) + "\" from=\"unix:\" role=admin what=" + what +
               " path=\"" + m_root + folder + "\" deleted=" + outcome;
    };
    // Two cached files cannot be removed.
    for (const std::uint32_t id : {3, 4})
        std::filesystem::create_directories(service->Cache().Root() /
                                            zentrel::CachedFile{id, zentrel::Encoding::Gzip, 0}.Path());
    const auto code = DeleteTree(*stub, m_root + "/dir0");
    EXPECT_NE(code, 0U);
    EXPECT_EQ(Ask(*stub, &Stub::DeleteEntry, Key(m_root + "/dir1/page4")), code);
    // Two clients leave while a deletion takes long: one whose turn it was, one that was behind it.
    const auto hold = [&](std::uint64_t) {
        std::vector<std::thread> clients(2);
        for (auto& client : clients)
            client = std::thread([&] {
                grpc::ClientContext context;
                context.set_deadline(std::chrono::system_clock::now() + std::chrono::milliseconds(300));
                const auto stream = stub->DeleteTree(&context, Key(m_root + "/dir2"));
                for (zentrel::v1::DeleteProgress news; stream->Read(&news);) {
                }
                EXPECT_EQ(stream->Finish().error_code(), grpc::StatusCode::DEADLINE_EXCEEDED);
            });
        for (auto& client : clients) client.join();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));  // until the server knows
        return true;
    };
    EXPECT_EQ(service->DeleteTree(m_root + "/dir1", hold).value(), 9U);
    for (int i = 0; i < 200 && Audit().size() < 4; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const auto failed = " outcome=failed error=" + std::to_string(code);
    EXPECT_EQ(Audit(),
              (std::vector{line("/dir0", "10" + failed), line("/dir1/page4", "1" + failed, "DeleteEntry"),
                           line("/dir2", "10 outcome=done"), line("/dir2", "0 outcome=failed error=1223")}));

    // What went was not refused, even if the server was refused a file.
    const auto log = *zentrel::AuditLog::Open(Path("own.log"));
    log->Write({"anna", "unix:", Role::Admin, true},
               {"DeleteTree", "LM", 9, Fail(Code::AccessDenied, "CacheFolder")});
    std::ifstream file(Path("own.log"));
    std::string own;
    std::getline(file, own);
    EXPECT_TRUE(own.ends_with("deleted=9 outcome=failed error=5")) << own;
}

TEST_F(AuditTrail, ALineThatAFullDiskCutShortDoesNotRunIntoTheNext)
{
    options.audit = Path("torn.log");
    const auto log = *zentrel::AuditLog::Open(options.audit);
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{50, limit.rlim_max};
    testing::internal::CaptureStderr();
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    log->Write({"anna", "unix:", Role::Admin, true}, {"ResetCounters", {}, {}, {}});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, before);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("zentreld: audit: 20"), std::string::npos);
    for (int i = 0; i < 2; ++i) log->Write({"bert", "unix:", Role::Admin, true}, {"DeleteTree", {}, 1, {}});
    std::ifstream file(options.audit);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].size(), 50U);
    for (const auto& line : {lines[1], lines[2]}) EXPECT_NE(line.find("Z who=\"bert\""), line.npos) << line;
}

TEST_F(AuditTrail, WhoLeavesAtOnceIsStillNamed)
{
    const auto path = Path("door.sock");
    const auto keeper = *zentrel::Doorkeeper::Make();
    std::atomic<int> admitted{0};
    keeper->Add(*zentrel::ListenUnix(path, 0600), [&](int connection) {
        close(connection);
        ++admitted;
    });
    ASSERT_TRUE(keeper->Start());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    for (int i = 1; i <= 3; ++i) {
        const zentrel::FileHandle guest(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        ASSERT_EQ(connect(guest.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        while (admitted < i) std::this_thread::yield();
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(keeper->UsersAt(0), "uid " + std::to_string(getuid()));
}
