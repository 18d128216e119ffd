#include "server/ConnectRoutine.h"

#include "server/ScriptedHosts.h"
#include "support/ScanRig.h"

namespace {

// Writes down what a connection shows and does, each step with a "|".
struct ConnectRig : ScanRig, ConnectionDisplay, PerformanceSteps {
    explicit ConnectRig(std::shared_ptr<ScriptedHosts> scripted = std::make_shared<ScriptedHosts>())
        : ScanRig(scripted),
          hosts(std::move(scripted)),
          routine(server, cache, settings, {*this, *this, *this, *this, *this, hosts.get(), this})
    {
        hosts->hosts["web01"] = {};
        hosts->hosts["here"].isLocal = true;
        hosts->hosts["here"].ownName = "HOST";
        settings.LastServer = "web01";
    }

    // The steps of one connection, from the connection panel's first text on.
    std::string Connect()
    {
        steps.clear();
        boxes.clear();
        hosts->calls.clear();
        routine.ConnectToServer();
        EXPECT_EQ(pointer, ScreenPointer::Default);
        EXPECT_FALSE(routine.IsBusy());
        return steps;
    }

    void SetCaption(const std::string& text) override { caption = text; }
    void SetTopStrip(const std::string& text) override { strip = text; }
    std::string Caption() const override { return caption; }
    bool IsClosing() const override { return isClosing; }
    void SetConnStatus(std::string_view text) override { steps += std::string(text) + "|"; }
    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override
    {
        ScanRig::Show(text, style, title);
        return style == BoxStyle::YesNoQuestion ? answer : BoxAnswer::Ok;
    }
    void Run() override
    {
        steps += pointer == ScreenPointer::Hourglass ? "wait|" : "ready|";
        ScanRig::Run();
    }

    void CloseQuery() override { steps += "close|"; }
    void ForgetCollectionWarning() override { steps += "forget|"; }
    void EnableTimer(bool isEnabled) override { steps += isEnabled ? "on|" : "off|"; }
    Done OpenQuery() override
    {
        steps += "open|";
        return {};
    }
    void InitPerfCounters() override { steps += "counters|"; }
    void BuildPerfRows() override { steps += "rows|"; }
    void ResetToolTips() override { steps += "tips|"; }
    void UpdatePerfSummary() override { steps += "summary|"; }
    void ShowNoFigures() override { steps += "---|"; }

    std::shared_ptr<ScriptedHosts> hosts;
    Settings settings;
    ConnectRoutine routine;
    std::string caption = "before";
    std::string strip = "before";
    std::string steps;
    BoxAnswer answer = BoxAnswer::Yes;
    bool isClosing = false;
};

const std::string kBegin = "Connecting to web01...|close|forget|off|wait|";
const std::string kFigures = "open|counters|rows|tips|summary|on|";
const std::string kEnd = "Connected to web01|ready|";
constexpr const char* kStart = "open(RemoteRegistry,a0000000) start close-service close-manager";

}  // namespace

TEST(ConnectRoutine, ShowsTheServerWhenBothObjectsAreConnected)
{
    ConnectRig rig;
    for (const auto& [count, strip] :
         {std::pair(0, "web01 - 0 web sites"), std::pair(1, "web01 - 1 web site"),
          std::pair(2, "web01 - 2 web sites")}) {
        rig.routine.SetSiteCount(count);
        EXPECT_EQ(rig.Connect(), kBegin + "wait|wait|" + kFigures + kEnd);
        EXPECT_EQ(rig.strip, strip);
    }
    EXPECT_TRUE(rig.routine.IsConnected());
    EXPECT_EQ(rig.caption, "web01 - Zentrel Quillet");
    EXPECT_EQ(rig.hosts->calls,
              "manager(web01,80000000) open(RemoteRegistry,4) query close-service close-manager");
}

TEST(ConnectRoutine, EachFailureHasItsMessageAndLeavesTheServerThatIsShown)
{
    const std::string absent = "Zentrel is not started on this server or it is an older version";
    const struct {
        std::vector<std::uint32_t> errors;  // of the server object, of the cache object
        std::string text;
    } cases[] = {
        {{Code::ServerUnavailable}, "Cannot connect to web01\r\n(Error 1722 - The server is unavailable.)"},
        {{0x80070005}, "Cannot connect to web01\r\n(Error 5 - Access denied)"},
        {{0, Code::UnknownInterface}, absent + "\r\n(Error 1717 - The interface is unknown.)"},
        {{0, Code::InterfaceNotFound}, absent + "\r\n(Error 1759 - The interface was not found.)"},
        {{0, 5}, "Cannot connect to Zentrel RPC server on web01\r\n(Error 5 - Access denied)"},
    };
    for (const auto& wanted : cases) {
        ConnectRig rig;
        rig.hosts->connectErrors = wanted.errors;
        EXPECT_EQ(rig.Connect(),
                  kBegin + (wanted.errors.size() > 1 ? "wait|" : "") + "Not connected - Error|---|");
        EXPECT_EQ(rig.boxes, std::vector<std::string>{"Zentrel Quillet: " + wanted.text + " (!)"});
        EXPECT_FALSE(rig.routine.IsConnected());
        EXPECT_EQ(rig.caption + rig.strip, "beforebefore");
    }
}

TEST(ConnectRoutine, ARemoteServerShowsFiguresOnlyWhileItsRegistryServiceRuns)
{
    using enum RemoteRegPolicy;
    constexpr auto kStopped = zentrel::ServiceState::Stopped;
    constexpr auto kRunning = zentrel::ServiceState::Running;
    const std::string ask = "before: The Remore Registry service is not started on web01\r\nThis service is "
                            "necessary to retrieve Zentrel Performance statistics\r\nStart the service?";
    const std::string access = "Zentrel Quillet: Cannot access Remote Registry service on web01\r\n(Error ";
    const std::string start = "Zentrel Quillet: Cannot start Remote Registry service on web01\r\n(Error ";
    const std::string runs = "1056 - An instance of the service is already running) (!)";
    const struct {
        RemoteRegPolicy policy;
        zentrel::ServiceState state;
        std::uint32_t manager, open, start;
        BoxAnswer answer;
        std::vector<std::string> boxes;
        bool hasFigures, isStarted;
    } cases[] = {
        {Never, kRunning, 0, 0, 0, BoxAnswer::Yes, {}, true, false},
        {Never, kStopped, 0, 0, 0, BoxAnswer::Yes, {}, false, false},
        {Never, kStopped, 5, 0, 0, BoxAnswer::Yes, {}, false, false},
        {Prompt, kStopped, 0, 0, 0, BoxAnswer::Yes, {ask}, true, true},
        {Prompt, kStopped, 0, 0, 0, BoxAnswer::No, {ask}, false, false},
        {Prompt, kStopped, 0, 0, 1056, BoxAnswer::Yes, {ask, start + runs}, false, true},
        {Prompt, kStopped, 5, 0, 0, BoxAnswer::Yes, {access + "5 - Access denied) (!)"}, false, false},
        {Automatically, kStopped, 0, 0, 0, BoxAnswer::No, {}, true, true},
        {Automatically, kStopped, 0, 0, 1056, BoxAnswer::No, {start + runs}, false, true},
        {Automatically, kStopped, 1722, 0, 0, BoxAnswer::No, {}, true, false},
        {Automatically, kStopped, 0, 1722, 0, BoxAnswer::No, {access + "1722 - ) (!)"}, false, false},
    };
    for (const auto& wanted : cases) {
        ConnectRig rig;
        rig.settings.StartRemoteReg = wanted.policy;
        rig.hosts->state = wanted.state;
        rig.hosts->managerError = wanted.manager;
        rig.hosts->serviceError = wanted.open;
        rig.hosts->startError = wanted.start;
        rig.answer = wanted.answer;
        EXPECT_EQ(rig.Connect(), kBegin + "wait|wait|" + (wanted.hasFigures ? kFigures : "---|") + kEnd);
        EXPECT_EQ(rig.boxes, wanted.boxes);
        EXPECT_EQ(rig.hosts->calls.find(kStart) != std::string::npos, wanted.isStarted) << rig.hosts->calls;
        EXPECT_TRUE(rig.routine.IsConnected());
    }
}

TEST(ConnectRoutine, ALocalServerNeedsNoRegistryServiceAndSaysThatItIsLocal)
{
    for (const auto error : {0U, 5U, 1060U}) {
        ConnectRig rig;
        rig.settings.LastServer = "here";
        rig.hosts->state = zentrel::ServiceState::Stopped;
        rig.hosts->serviceError = error;
        EXPECT_NE(rig.Connect().find(kFigures + "Connected to here|"), std::string::npos);
        EXPECT_TRUE(rig.boxes.empty());
        EXPECT_TRUE(rig.hosts->calls.starts_with("manager(,80000000) open(RemoteRegistry,4) "));
        EXPECT_EQ(rig.strip, "here - Local - 0 web sites");
    }
}

TEST(ConnectRoutine, MessagesThatRunMeanwhileMayCloseTheWindowOrConnectAgain)
{
    for (int visit = 1; visit <= 3; ++visit) {
        ConnectRig rig;
        rig.Connect();
        EXPECT_TRUE(rig.routine.IsConnected());
        rig.hosts->state = zentrel::ServiceState::Stopped;
        rig.hosts->connectErrors = {0, visit == 1 ? 5U : 0U};
        int visits = 0;
        rig.onRun = [&] {
            EXPECT_FALSE(rig.routine.IsConnected());  // the objects may be bound to two servers
            rig.routine.ConnectToServer();            // does nothing
            rig.isClosing = ++visits >= visit;
        };
        rig.Connect();
        EXPECT_EQ(rig.steps.find("Connecting", 1), std::string::npos);
        EXPECT_TRUE(rig.steps.ends_with("Not connected - Error|---|")) << rig.steps;
        EXPECT_TRUE(rig.boxes.empty());
        EXPECT_FALSE(rig.routine.IsConnected());
    }
}
