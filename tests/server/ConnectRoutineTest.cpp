#include "server/ConnectRoutine.h"

#include "support/ScanRig.h"
#include "support/ScriptedTransport.h"

namespace {

// Writes down what a connection shows.
struct ConnectRig : ScanRig, ConnectionDisplay {
    explicit ConnectRig(const std::shared_ptr<ScriptedTransport>& transport)
        : ScanRig(transport),
          routine(server, cache, settings, {*this, *this, *this, *this, *this})
    {
        settings.LastServer = "web01";
        isConnected = false;
    }

    void SetCaption(const std::string& text) override { caption = text; }
    void SetTopStrip(const std::string& text) override { strip = text; }
    void SetConnStatus(std::string_view text) override { states += std::string(text) + "|"; }

    Settings settings;
    ConnectRoutine routine;
    std::string caption = "before";
    std::string strip = "before";
    std::string states;
};

}  // namespace

TEST(ConnectRoutine, ShowsTheServerWhenBothObjectsAreConnected)
{
    ConnectRig rig(std::make_shared<ScriptedTransport>());
    for (const auto& [count, strip] :
         {std::pair(0, "web01 - 0 web sites"), std::pair(1, "web01 - 1 web site"),
          std::pair(2, "web01 - 2 web sites")}) {
        rig.routine.SetSiteCount(count);
        rig.routine.ConnectToServer();
        EXPECT_EQ(rig.strip, strip);
    }
    EXPECT_TRUE(rig.routine.IsConnected());
    EXPECT_EQ(rig.caption, "web01 - Zentrel Quillet");
    EXPECT_TRUE(rig.states.starts_with("Connecting to web01...|Connected to web01|"));
    EXPECT_EQ(rig.pointer, ScreenPointer::Default);
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
        {{0, 1722}, absent + "\r\n(Error 1722 - The server is unavailable.)"},
        {{0, Code::InterfaceNotFound}, absent + "\r\n(Error 1759 - The interface was not found.)"},
        {{0, 5}, "Cannot connect to Zentrel RPC server on web01\r\n(Error 5 - Access denied)"},
    };
    for (const auto& wanted : cases) {
        const auto transport = std::make_shared<ScriptedTransport>();
        ConnectRig rig(transport);
        transport->connectErrors = wanted.errors;
        rig.routine.ConnectToServer();
        EXPECT_EQ(rig.boxes, std::vector<std::string>{"Zentrel Quillet: " + wanted.text + " (!)"});
        EXPECT_FALSE(rig.routine.IsConnected());
        EXPECT_EQ(rig.states, "Connecting to web01...|Not connected - Error|");
        EXPECT_EQ(rig.caption + rig.strip, "beforebefore");
        EXPECT_EQ(rig.pointer, ScreenPointer::Default);
    }
}

TEST(SiteSet, KeepsNumbersInSlots)
{
    SiteSet set;
    for (const int site : {5, 7, 5, 0, 9}) set.Add(site);
    set.Remove(7);
    set.Remove(0);
    set.Remove(42);
    EXPECT_TRUE(set.Contains(5) && !set.Contains(7) && !set.Contains(0));
    set.Add(8);
    EXPECT_EQ(std::vector<std::int32_t>(set.Slots().begin(), set.Slots().end()),
              (std::vector<std::int32_t>{5, 8, 9, 0, 0}));
    for (const int site : {5, 8, 9}) set.Remove(site);
    set.Trim();
    EXPECT_EQ(set.Slots().size(), 1U);
}
