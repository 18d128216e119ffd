// The window and the dialog over a real daemon's administration, and over one that does not answer.
#include "remote/AdminRig.h"
#include "support/LyingServer.h"
#include "zentrel/remote/ServerDirectory.h"

#include "ops/AnalysisRig.h"
#include "server/frmServer.h"
#include "shell/QtMessagePump.h"
#include "shell/WindowRig.h"

#include <QLineEdit>
#include <QTimer>

#include <random>

namespace {

// Counts how often it is painted under the hourglass.
struct Canvas : QWidget {
    void paintEvent(QPaintEvent*) override
    {
        const auto* const shown = QGuiApplication::overrideCursor();
        if (shown != nullptr && shown->shape() == Qt::WaitCursor) ++paints;
    }
    int paints = 0;
};

class RemoteServer : public AdminRig, public WindowHost {
public:
    // The main window over web01, which is the daemon over TLS.
    void Display(RemoteRegPolicy policy = RemoteRegPolicy::Never)
    {
        WriteServers();
        Open(Reach(Path("admin.sock"), {}), Path("settings.hive"));
        state->settings.StartRemoteReg = policy;
        state->first->server = "web01";
        window->Display();
    }

    void WriteServers() const
    {
        const auto client = *zentrel::MakeClientCertificate(authority, "alice", zentrel::Role::Admin, 30);
        Write("ca.pem", authority.certificate);
        Write("me.pem", client.certificate);
        Write("me.key", client.key);
        Write("servers.conf", "[defaults]\nca = ca.pem\ncertificate = me.pem\nkey = me.key\n"
                              "[server web01]\nhost = 127.0.0.1\nport = " +
                                  std::to_string(server->Port(kTls)) + "\n");
    }
    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name), std::ios::trunc) << text;
    }

    // "here" leads through the socket.
    std::shared_ptr<zentrel::ServerDirectory> Reach(const std::filesystem::path& socket,
                                                    const zentrel::Deadlines& deadlines) const
    {
        return std::make_shared<zentrel::ServerDirectory>(
            std::make_shared<zentrel::EmbeddedTransport>("/nonexistent/zentrel", "here"),
            zentrel::ServerPlaces{{socket}, Path("servers.conf")}, PaintWhileWaiting, deadlines);
    }

    // Shows the dialog over the socket and runs the script when it can be used.
    void ShowDialog(const LyingServer& liar, const std::function<void(frmServer&, ServerSelection&)>& script)
    {
        zentrel::Deadlines deadlines;
        deadlines.connect = deadlines.read = std::chrono::milliseconds(400);
        const auto servers = Reach(liar.Socket(), deadlines);
        const zentrel::ServerAdmin current(servers);
        Settings settings;
        settings.LastServer = "here";
        ServerSelection selection(servers, current, "here", settings, {boxes, pointer});
        frmServer dialog(selection, nullptr);
        WhenVisible(dialog, [&] { script(dialog, selection); });
        dialog.ShowModal();
    }
    static void WhenVisible(frmServer& dialog, const std::function<void()>& script)
    {
        QTimer::singleShot(5, &dialog, [&dialog, script] {
            if (!dialog.isVisible()) return WhenVisible(dialog, script);
            script();
            if (dialog.isVisible()) dialog.reject();
        });
    }

    // As a power failure at the server.
    void Kill()
    {
        server->Stop(std::chrono::milliseconds(0));
        server.reset();
    }
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

}  // namespace

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
    std::atomic<const char*> stalled{""};
    const LyingServer liar(OneSite(stalled));
    ShowDialog(liar, [&](frmServer& dialog, ServerSelection& selection) {
        for (const auto& wanted : cases) {
            SCOPED_TRACE(wanted.call);
            ASSERT_EQ(dialog.lstSites->model()->rowCount(), 1);
            EXPECT_TRUE(dialog.cmdOK->isEnabled() && boxes.shown.empty());
            stalled = wanted.call;
            Canvas canvas;
            canvas.show();
            QTimer turn;
            QObject::connect(&turn, &QTimer::timeout, &canvas, qOverload<>(&QWidget::update));
            turn.start(10);
            QElapsedTimer time;
            time.start();
            selection.Connect();
            EXPECT_LT(time.elapsed(), 5000);
            EXPECT_GE(canvas.paints, 5);
            EXPECT_FALSE(dialog.cmdOK->isEnabled() || selection.CanConfirm());
            ASSERT_EQ(boxes.shown.size(), 1U);
            EXPECT_TRUE(boxes.shown[0].starts_with(wanted.box)) << boxes.shown[0];
            EXPECT_EQ(boxes.shown[0].find("259"), std::string::npos) << "it was not asked to the end";
            EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
            boxes.shown.clear();
            stalled = "";
            selection.Connect();
        }
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
    pump.onRun = [&](int) {
        if (state->contents.totals.Count == 50 && server) Kill();
    };
    Display();
    const auto found = state->contents.totals.Count;
    pump.onRun = nullptr;
    EXPECT_GE(found, 50);
    EXPECT_LT(found, static_cast<int>(kMany)) << "it was not killed in the middle";
    EXPECT_EQ(LabelText("Status"), QStringLiteral("Found: %1 Files").arg(found));
    EXPECT_TRUE(window->trvFiles->isVisible() && window->trvFiles->isEnabled());
    EXPECT_EQ(window->trvFiles->model()->rowCount(), 1);
    EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
    EXPECT_EQ(boxes.shown, std::vector<std::string>());
    EXPECT_FALSE(services->IsRunning(zentrel::kRemoteReading));

    // While it is gone: one message for each attempt, and the window goes on.
    window->Rescan();
    EXPECT_EQ(boxes.shown.size(), 1U);
    window->ConnectToServer();
    EXPECT_EQ(boxes.shown.size(), 2U);
    EXPECT_FALSE(window->IsConnected());

    auto again = zentrel::AdminServer::Start(service, services, options);
    ASSERT_TRUE(again);
    server = std::move(*again);
    WriteServers();  // its port is another one now
    window->ConnectToServer();
    window->Rescan();
    EXPECT_TRUE(window->IsConnected());
    EXPECT_EQ(state->contents.totals.Count, static_cast<int>(kMany) + 30);
    EXPECT_EQ(boxes.shown.size(), 2U);
}

TEST_F(RemoteServer, AnalysesItsFilesAndTellsTheirPlaceOnItsShare)
{
    Start();
    std::filesystem::create_directory(Path("temp"));
    setenv("TMPDIR", Path("temp").c_str(), 1);
    Display(RemoteRegPolicy::Automatically);
    EXPECT_TRUE(services->IsRunning(zentrel::kRemoteReading));
    EXPECT_EQ(Find<QLineEdit>("TotalsValue(15)")->text(), "0") << "so the counters are there";
    Select("1/Root/dir1/page1");

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
    for (const auto& wanted : cases) {
        const auto& box = wanted.box;
        SCOPED_TRACE(box);
        if (!wanted.text.empty()) m_store.PutCacheFile(1, Compressed(wanted.text));
        boxes.shown.clear();
        pump.runs = 0;
        pump.onRun = [&, isLast = box == reading](int run) {
            if (isLast && run == 20) Kill();
        };
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto* const dialog = window->findChild<frmFileInfo*>();
            if (dialog == nullptr || (boxes.shown.empty() && !dialog->pltLevels->isVisible())) return;
            EXPECT_EQ(dialog->pltLevels->isVisible(), box.empty());
            EXPECT_EQ(dialog->cmdCompr->isEnabled(), !box.empty()) << "it can be tried again";
            dialog->reject();
        });
        watch.start(10);
        window->ShowFileDetails(true);
        ASSERT_EQ(boxes.shown.size(), box.empty() ? 0U : 1U);
        if (!box.empty()) {
            EXPECT_TRUE(boxes.shown[0].starts_with(box)) << boxes.shown[0];
        }
        EXPECT_TRUE(std::filesystem::is_empty(Path("temp")));
    }
    unsetenv("TMPDIR");
}
