// The window and the dialog over a real daemon's administration, and over one that does not answer.
#include "remote/AdminRig.h"
#include "support/LyingServer.h"
#include "zentrel/CachedFile.h"
#include "zentrel/remote/ServerDirectory.h"

#include "ops/AnalysisRig.h"
#include "server/frmServer.h"
#include "shell/QtMessagePump.h"

#include <QTimer>

#include <random>

namespace {

using zentrel::Role;

constexpr auto kPatience = std::chrono::milliseconds(400);

// A label that wants to be painted all the time, and how often it was.
class Canvas : public QWidget {
public:
    Canvas()
    {
        connect(&m_timer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
        m_timer.start(10);
        show();
    }
    int paints = 0;
    int paintsUnderHourglass = 0;

protected:
    void paintEvent(QPaintEvent*) override
    {
        ++paints;
        const auto* const pointer = QGuiApplication::overrideCursor();
        if (pointer != nullptr && pointer->shape() == Qt::WaitCursor) ++paintsUnderHourglass;
    }

private:
    QTimer m_timer;
};

// Answers every question as the test says.
class AnsweringBoxes : public ScriptedBoxes {
public:
    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override
    {
        ScriptedBoxes::Show(text, style, title);
        return style == BoxStyle::YesNoQuestion ? answer : BoxAnswer::Ok;
    }
    BoxAnswer answer = BoxAnswer::Yes;
};

class RemoteServer : public AdminRig {
public:
    // "here" leads through the socket, "web01" over TLS, each call in the role.
    std::shared_ptr<zentrel::ServerDirectory> Servers(Role role = Role::Admin)
    {
        const auto client = *zentrel::MakeClientCertificate(authority, "alice", role, 30);
        Write("ca.pem", authority.certificate);
        Write("me.pem", client.certificate);
        Write("me.key", client.key);
        Write("servers.conf", "[defaults]\nca = ca.pem\ncertificate = me.pem\nkey = me.key\n"
                              "[server web01]\nhost = 127.0.0.1\nport = " +
                                  std::to_string(server->Port(kTls)) + "\n");
        return Reach(Path("admin.sock"));
    }

    std::shared_ptr<zentrel::ServerDirectory> Reach(const std::filesystem::path& socket,
                                                    const zentrel::Deadlines& deadlines = {}) const
    {
        auto embedded = std::make_shared<zentrel::EmbeddedTransport>("/nonexistent/zentrel", "here");
        return std::make_shared<zentrel::ServerDirectory>(
            std::move(embedded), zentrel::ServerPlaces{{socket}, Path("servers.conf")}, PaintWhileWaiting,
            deadlines);
    }

    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name), std::ios::trunc) << text;
    }

    // Shows the dialog for the last server and runs the script when it can be used.
    void ShowDialog(const std::shared_ptr<zentrel::Transport>& servers,
                    const std::function<void(frmServer&, ServerSelection&)>& script)
    {
        const zentrel::ServerAdmin current(servers);
        ServerSelection selection(servers, current, "here", settings, {boxes, pointer});
        frmServer dialog(selection, nullptr);
        QTimer::singleShot(0, &dialog, [&] { WhenVisible(dialog, [&] { script(dialog, selection); }); });
        dialog.ShowModal();
    }

    static void WhenVisible(frmServer& dialog, const std::function<void()>& script)
    {
        if (!dialog.isVisible()) {
            QTimer::singleShot(5, &dialog, [&dialog, script] { WhenVisible(dialog, script); });
            return;
        }
        script();
        if (dialog.isVisible()) dialog.reject();
    }

    AnsweringBoxes boxes;
    QtScreenPointer pointer;
    Settings settings;
};

// A server with one site that never answers the call that is named last.
LyingServer::Script OneSite(const std::atomic<const char*>& stalled)
{
    using namespace zentrel::v1;
    return [&stalled](const std::string& call, const std::string&) -> std::optional<Answer> {
        if (call == stalled.load()) return Answer::Never();
        if (call == "CountKeys")
            return Answer::One(LyingServer::Bytes<CountReply>([](auto& reply) { reply.set_count(1); }));
        if (call == "ListKeys")
            return Answer::One(LyingServer::Bytes<ListKeysReply>([](auto& reply) {
                reply.add_names("1");
                reply.set_is_last(true);
            }));
        if (call != "GetData") return std::nullopt;
        return Answer::One(LyingServer::Bytes<GetDataReply>([](auto& reply) {
            zentrel::PropertySet properties;
            properties.SetText(zentrel::Prop::ServerComment, "Only");
            const zentrel::Record record(*properties.Find(zentrel::Prop::ServerComment));
            reply.set_exists(true);
            reply.set_type(static_cast<std::uint32_t>(record.Type()));
            reply.set_value(record.Value().data(), record.Value().size());
        }));
    };
}

struct Quiet : ConnectionDisplay, StatusLine, MessagePump {
    void SetCaption(const std::string&) override {}
    void SetTopStrip(const std::string& text) override { strip = text; }
    std::string Caption() const override { return "Caption"; }
    void SetStatus(std::string_view) override {}
    void SetConnStatus(std::string_view text) override { status = text; }
    void Run() override {}
    std::string strip, status;
};

}  // namespace

TEST_F(RemoteServer, ListsItsSitesInTheDialogThroughSocketAndTls)
{
    Start();
    m_store.PutSite(2, "Second");
    const auto servers = Servers();
    for (const std::string name : {"here", "web01"}) {
        settings.LastServer = name;
        settings.Sites.Remove(2);
        ShowDialog(servers, [&](frmServer& dialog, ServerSelection& selection) {
            ASSERT_EQ(dialog.lstSites->model()->rowCount(), 2) << name;
            EXPECT_EQ(dialog.lstSites->model()->index(1, 0).data().toString(), "Second");
            QTest::mouseClick(dialog.cmdSelAll, Qt::LeftButton);
            QTest::mouseClick(dialog.cmdOK, Qt::LeftButton);
            EXPECT_TRUE(selection.SitesConfirmed() && selection.SiteCount() == 2);
        });
        EXPECT_TRUE(settings.Sites.Contains(2)) << name;
    }
    EXPECT_EQ(boxes.shown, std::vector<std::string>());
    EXPECT_EQ(settings.Servers, (std::vector<std::string>{"web01", "here"}));
}

TEST_F(RemoteServer, OpensItsCountersAsThePolicyAndTheRoleAllow)
{
    Start();
    const std::string ask = "Caption: The Remore Registry service is not started on web01\r\nThis service is "
                            "necessary to retrieve Zentrel Performance statistics\r\nStart the service?";
    const std::string denied = "Zentrel Quillet: Cannot start Remote Registry service on web01\r\n(Error 5 - "
                               "Access denied)";
    using enum RemoteRegPolicy;
    const struct {
        const char* name;
        Role role;
        RemoteRegPolicy policy;
        BoxAnswer answer;
        bool isStarted;
        std::vector<std::string> boxes;
    } cases[] = {
        {"web01", Role::Admin, Never, BoxAnswer::Yes, false, {}},
        {"web01", Role::Admin, Prompt, BoxAnswer::No, false, {ask}},
        {"web01", Role::Admin, Prompt, BoxAnswer::Yes, true, {ask}},
        {"web01", Role::Admin, Automatically, BoxAnswer::No, true, {}},
        {"web01", Role::Operator, Automatically, BoxAnswer::No, false, {denied}},
        {"web01", Role::Viewer, Prompt, BoxAnswer::Yes, false, {ask, denied}},
        {"here", Role::Admin, Automatically, BoxAnswer::Yes, false, {}},
    };
    for (const auto& wanted : cases) {
        const auto servers = Servers(wanted.role);
        zentrel::ServerAdmin admin(servers);
        zentrel::CacheAdmin cache(servers);
        Quiet host;
        settings.LastServer = wanted.name;
        settings.StartRemoteReg = wanted.policy;
        boxes.shown.clear();
        boxes.answer = wanted.answer;
        ConnectRoutine routine(admin, cache, settings, {host, host, boxes, host, pointer, servers.get()});
        routine.ConnectToServer();
        const bool isLocal = settings.LastServer == "here";
        EXPECT_TRUE(routine.IsConnected());
        EXPECT_EQ(host.status, "Connected to " + settings.LastServer);
        EXPECT_EQ(host.strip, settings.LastServer + (isLocal ? " - Local" : "") + " - 0 web sites");
        EXPECT_EQ(boxes.shown, wanted.boxes);
        EXPECT_EQ(services->IsRunning(zentrel::kRemoteReading), wanted.isStarted);
        const auto session = servers->Connect(wanted.name);
        ASSERT_TRUE(session);
        EXPECT_EQ((*session)->ReadCounters().has_value(), isLocal || wanted.isStarted);
        EXPECT_EQ(services->Stop(zentrel::kRemoteReading).has_value(), wanted.isStarted);
    }
}

TEST_F(RemoteServer, AServerThatDoesNotAnswerIsWaitedForWithALivelyWindow)
{
    const std::string unlisted =
        "Zentrel Quillet: Unable to retrieve the list of web sites from the server\r\n(Error ";
    const struct {
        const char* call;
        std::string box;
    } cases[] = {
        {"Hello", "Zentrel Quillet: Cannot connect to here.\r\n(Error "},
        {"CountKeys", unlisted},
        {"ListKeys", unlisted},
        {"GetData", unlisted},
    };
    std::atomic<const char*> stalled{};
    settings.LastServer = "here";
    for (const auto& wanted : cases) {
        stalled = wanted.call;
        const LyingServer liar(OneSite(stalled));
        zentrel::Deadlines deadlines;
        deadlines.connect = deadlines.read = kPatience;
        const Canvas canvas;
        boxes.shown.clear();
        QElapsedTimer time;
        time.start();
        ShowDialog(Reach(liar.Socket(), deadlines), [&](frmServer& dialog, ServerSelection& selection) {
            EXPECT_LT(time.elapsed(), 5000) << wanted.call;
            EXPECT_GE(canvas.paints, 5) << wanted.call;
            EXPECT_GE(canvas.paintsUnderHourglass, 5) << wanted.call;
            EXPECT_FALSE(dialog.cmdOK->isEnabled() || selection.SiteCount() != 0) << wanted.call;
            ASSERT_EQ(boxes.shown.size(), 1U) << wanted.call;
            EXPECT_TRUE(boxes.shown[0].starts_with(wanted.box)) << boxes.shown[0];
            EXPECT_EQ(boxes.shown[0].find("259"), std::string::npos) << "it was not asked to the end";
            EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
        });
    }
}

TEST_F(RemoteServer, WhileItsSitesAreReadAgainTheDialogOffersNone)
{
    std::atomic<const char*> stalled{""};
    const LyingServer liar(OneSite(stalled));
    zentrel::Deadlines deadlines;
    deadlines.connect = deadlines.read = kPatience;
    settings.LastServer = "here";
    ShowDialog(Reach(liar.Socket(), deadlines), [&](frmServer& dialog, ServerSelection& selection) {
        ASSERT_EQ(dialog.lstSites->model()->rowCount(), 1);
        EXPECT_TRUE(dialog.cmdOK->isEnabled());
        stalled = "GetData";
        int looks = 0;
        QTimer::singleShot(100, &dialog, [&] {
            ++looks;
            EXPECT_TRUE(selection.State() == SitesState::Reading && boxes.shown.empty());
            EXPECT_EQ(dialog.lstSites->model()->rowCount(), 0);
            EXPECT_FALSE(dialog.cmdOK->isEnabled());
        });
        selection.Connect();
        EXPECT_EQ(looks, 1);
        EXPECT_EQ(boxes.shown.size(), 1U);
        stalled = "";
        selection.Connect();
        EXPECT_TRUE(dialog.cmdOK->isEnabled());
    });
}

TEST_F(RemoteServer, KilledInAScanLeavesWhatWasFoundAndCanBeReachedAgain)
{
    constexpr std::uint32_t kMany = 20'000;
    PutEntries(100, kMany, [this](std::uint32_t i) {
        const auto step = "/" + std::string(200, 'x') + std::to_string(i);
        return m_root + step + step + step;
    });
    Start();
    std::string trouble;
    const auto registry = RegistryStore::Open(Path("settings.hive"), {}, trouble);
    ProcessState state(Servers(), Servers(), *registry);
    state.settings.StartRemoteReg = RemoteRegPolicy::Never;
    state.first.emplace();
    state.first->server = "web01";
    ScriptedPump pump;
    ScriptedOutside outside;
    frmMain window(state, Desktop{boxes, pump, pointer, outside, outside});
    pump.onRun = [&](int) {
        if (state.contents.totals.Count != 50 || !server) return;
        server->Stop(std::chrono::milliseconds(0));
        server.reset();
    };
    window.Display();
    const auto found = state.contents.totals.Count;
    pump.onRun = nullptr;
    EXPECT_GE(found, 50);
    EXPECT_LT(found, static_cast<int>(kMany)) << "it was not killed in the middle";
    QTest::qWait(60);
    EXPECT_EQ(window.findChild<QLabel*>("Status")->text(), QStringLiteral("Found: %1 Files").arg(found));
    EXPECT_TRUE(window.trvFiles->isVisible() && window.trvFiles->isEnabled());
    EXPECT_EQ(window.trvFiles->model()->rowCount(), 1);
    EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
    EXPECT_EQ(boxes.shown, std::vector<std::string>());

    // While it is gone: one message for each attempt, and the window goes on.
    window.Rescan();
    EXPECT_EQ(boxes.shown.size(), 1U);
    window.ConnectToServer();
    EXPECT_EQ(boxes.shown.size(), 2U);
    EXPECT_FALSE(window.IsConnected());

    auto again = zentrel::AdminServer::Start(service, services, options);
    ASSERT_TRUE(again);
    server = std::move(*again);
    Servers();  // its port is another one now
    window.ConnectToServer();
    window.Rescan();
    EXPECT_TRUE(window.IsConnected());
    EXPECT_EQ(state.contents.totals.Count, static_cast<int>(kMany) + 30);
    EXPECT_EQ(boxes.shown.size(), 2U);
}

TEST_F(RemoteServer, AnalysesItsFilesAndTellsTheirPlaceOnItsShare)
{
    Start();
    std::filesystem::create_directory(Path("temp"));
    setenv("TMPDIR", Path("temp").c_str(), 1);
    const auto cached = zentrel::CachedFile{1, zentrel::Encoding::Gzip, 0}.Path();
    const auto put = [&](const std::string& text) {
        const auto bytes = Compressed(text);
        std::filesystem::create_directories((service->Cache().Root() / cached).parent_path());
        std::ofstream(service->Cache().Root() / cached, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    };
    std::string trouble;
    const auto registry = RegistryStore::Open(Path("settings.hive"), {}, trouble);
    ProcessState state(Servers(), Servers(), *registry);
    state.settings.StartRemoteReg = RemoteRegPolicy::Never;
    state.first.emplace();
    state.first->server = "web01";
    ScriptedPump pump;
    ScriptedOutside outside;
    frmMain window(state, Desktop{boxes, pump, pointer, outside, outside});
    window.Display();
    const auto& model = static_cast<const CacheTreeModel&>(*window.trvFiles->model());
    window.trvFiles->setCurrentIndex(model.IndexOf(state.contents.tree.Find("1/Root/dir1/page1")));

    const auto share = R"(\\web01\)" + service->Cache().Root().string() + R"(\0\1.gzip)";
    const auto opening = "Zentrel Quillet: Cannot open " + share + "\r\n(Error 2 - ";
    const auto reading = "Zentrel Quillet: Cannot decompress " + share + "\r\n(Error 1722 - ";
    std::string random(12'000'000, '\0');  // more than is on its way at once
    std::minstd_rand source(1);
    for (auto& c : random) c = static_cast<char>(source() >> 8U);
    const struct {
        std::string text;
        std::string box;
    } cases[] = {{{}, opening}, {PageText(100'000), {}}, {random, reading}};
    for (const auto& [text, box] : cases) {
        SCOPED_TRACE(box);
        if (!text.empty()) put(text);
        boxes.shown.clear();
        pump.runs = 0;
        pump.onRun = [&, isLast = box == reading](int run) {
            if (!isLast || run != 20) return;
            server->Stop(std::chrono::milliseconds(0));
            server.reset();
        };
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto* const dialog = window.findChild<frmFileInfo*>();
            if (dialog == nullptr || (boxes.shown.empty() && !dialog->pltLevels->isVisible())) return;
            EXPECT_EQ(dialog->pltLevels->isVisible(), box.empty());
            EXPECT_EQ(dialog->cmdCompr->isEnabled(), !box.empty()) << "it can be tried again";
            dialog->reject();
        });
        watch.start(10);
        window.ShowFileDetails(true);
        ASSERT_EQ(boxes.shown.size(), box.empty() ? 0U : 1U);
        if (!box.empty()) {
            EXPECT_TRUE(boxes.shown[0].starts_with(box)) << boxes.shown[0];
        }
        EXPECT_TRUE(std::filesystem::is_empty(Path("temp")));
    }
    unsetenv("TMPDIR");
}
