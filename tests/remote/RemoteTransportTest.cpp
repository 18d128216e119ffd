#include "remote/AdminRig.h"
#include "support/LyingServer.h"
#include "support/ScanRig.h"

#include <thread>

namespace {

using namespace zentrel;
using Clock = std::chrono::steady_clock;

class Remote : public AdminRig {
protected:
    void SetUp() override
    {
        for (const char* name : {"dir1/d e.txt", "\xC3\xBC.html"})
            m_store.Put(m_root + '/' + name, TestStore::Entry(31, 1000, 100));
        m_store.Put(m_root + "/dir1/page1/0011223344556677", TestStore::Variant(2000, 100));
        Start();
    }
    static std::shared_ptr<Transport> To(RemoteTarget target)
    {
        return std::make_shared<RemoteTransport>(std::move(target));
    }
};

// What a session says to many questions, as one text.
std::string Answers(Session& session)
{
    std::ostringstream told;
    const auto add = [&told](const auto& result, auto show) {
        if (result)
            told << show(*result) << '\n';
        else
            told << result.error().Plain() << result.error().description << '\n';
    };
    for (const char* path :
         {"", "LM/W3SVC/1", "/LM/W3SVC/1/Root/", "LM/W3SVC/1/Root/dir1", "LM/gone", "a//b", ".."}) {
        for (const auto view : {View::Server, View::Cache}) {
            add(session.CountKeys(path, view), [](std::uint32_t count) { return count; });
            for (const char* after : {"", "page1"})
                add(session.ListKeys(path, view, after, 2), [](const KeyPage& page) {
                    return ::testing::PrintToString(page.names) + (page.isLast ? "." : "...");
                });
        }
        for (const auto id : {Prop::KeyType, Prop::ServerComment, Prop::CacheId})
            add(session.GetData(path, id), [](const std::optional<Record>& record) {
                return record ? std::to_string(static_cast<int>(record->Type())) + std::string(record->Text())
                              : "none";
            });
    }
    add(session.GetCacheDir(), [](const std::string& dir) { return dir; });
    return told.str();
}

TEST_F(Remote, EveryWayGivesTheSameAnswersAndTheSameTree)
{
    const auto embedded = std::make_shared<EmbeddedTransport>(service, "HERE");
    const auto expected = Answers(**embedded->Connect(""));
    ScanRig near(embedded);
    near.Rescan({1});
    ASSERT_EQ(near.contents.totals.Count, 32);
    auto otherName = TargetOf(kTls6, Role::Viewer);
    otherName.certificateName = "localhost";
    for (const auto& target : {TargetOf(kAdmins), TargetOf(kViewers), TargetOf(kTls), otherName}) {
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
    const auto viewer = *To(TargetOf(kTls, Role::Viewer))->Connect("v");
    EXPECT_EQ(viewer->DeleteTree(m_root + "/dir1").error().Plain(), Code::AccessDenied);
    const auto admin = *To(TargetOf(kTls))->Connect("a");
    EXPECT_TRUE(admin->DeleteEntry(m_root + "/dir0/page3"));
    EXPECT_EQ(admin->OpenKey(m_root + "/dir0/page3").error().code, Code::FileNotFound);
    EXPECT_TRUE(admin->DeleteTree(m_root + "/dir1"));
    EXPECT_EQ(*admin->CountKeys(m_root, View::Cache), 3);
    EXPECT_TRUE(admin->ResetCounters());

    const auto asViewer = To(TargetOf(kTls, Role::Viewer));
    EXPECT_TRUE(asViewer->OpenServiceManager("", ServiceAccess::GenericRead));
    EXPECT_EQ(asViewer->OpenServiceManager("", 0xA0000000).error().code, Code::AccessDenied);
}

TEST_F(Remote, BothSidesMustBeWhoTheySay)
{
    const auto stranger = *MakeAuthority("Stranger", 2);
    const auto forged = *MakeClientCertificate(stranger, "tester", Role::Admin, 2);
    const auto good = TargetOf(kTls);
    auto wrongServer = good, wrongClient = good, noClient = good, noTls = good, swapped = good;
    auto otherKey = good, many = good;
    wrongServer.authority = stranger.certificate;
    wrongClient.certificate = forged.certificate;
    wrongClient.key = otherKey.key = forged.key;
    noClient.certificate = noClient.key = "";
    noTls.authority = "not PEM";
    std::swap(swapped.certificate, swapped.key);
    for (int i = 0; i < 400; ++i) many.authority += stranger.certificate;
    EXPECT_TRUE(To(many)->Connect("s")) << "one of many authorities";
    const std::pair<RemoteTarget, const char*> cases[] = {
        {wrongServer, "not signed"},           {TargetOf(kTls6), "another name"},
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
    auto nowhere = TargetOf(kTls);
    nowhere.host = "no-such-host.invalid";
    const auto start = Clock::now();
    const auto session = RemoteTransport(nowhere, {}, deadlines).Connect("s");
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(1'500));
    ASSERT_FALSE(session);
    EXPECT_EQ(session.error().code, Code::ServerUnavailable);
    auto near = TargetOf(kTls);
    near.host = "localhost";
    EXPECT_TRUE(To(near)->Connect("s")) << "the next one does not wait for it";
}

TEST(WhileWaiting, TheHookRunsWhileACallWaitsAndMayCallItself)
{
    LyingServer server([&](const std::string& call, const std::string&) -> std::optional<Answer> {
        if (call == "OpenKey") std::this_thread::sleep_for(std::chrono::milliseconds(200));
        return std::nullopt;
    });
    int runs = 0;
    std::shared_ptr<Session> session;
    bool isNested = false;
    const auto hook = [&] {
        ++runs;
        if (session == nullptr || isNested) return;
        isNested = true;
        EXPECT_TRUE(session->GetCacheDir());
        isNested = false;
    };
    session = *RemoteTransport(server.Target(), hook).Connect("s");
    runs = 0;
    EXPECT_TRUE(session->OpenKey("LM"));
    EXPECT_TRUE(runs >= 4 && runs <= 20) << runs;
}

}  // namespace
