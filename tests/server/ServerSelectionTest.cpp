#include "server/ServerSelection.h"

#include "server/ScriptedHosts.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using Names = std::vector<std::string>;

// The dialog without its window. Server "web01" runs sites 1 and 3, and one that is stopped.
struct SelectionRig : SelectionScreen, MessageBoxes, ScreenPointer {
    explicit SelectionRig(SiteReadingLimits limits = {})
        : current(hosts),
          selection(hosts, current, "HOST", settings, {*this, *this}, limits)
    {
        hosts->hosts["web01"].sites = {{"1", "beta", 2, {":80:"}}, {"2", "Alpha", 4, {}}, {"3", "gamma"}};
        hosts->hosts["HOST"] = {{{"7", "here"}}, true, "HOST"};
        settings.LastServer = "web01";
    }

    void Load()
    {
        hosts->connects.clear();
        selection.Load(*this);
    }

    // Each site as [x]name, with a "-" in front when it is down.
    std::string Sites() const
    {
        std::string text;
        for (std::size_t row = 0; row < selection.Sites().Size(); ++row) {
            const auto& site = selection.Sites()[row];
            text += (site.isChecked ? "[x]" : "[ ]") + std::string(site.isUp ? "" : "-") + site.name;
        }
        return text;
    }

    void Edit(const std::string& text)
    {
        hosts->connects.clear();
        selection.EditServer(text);
    }

    void ShowServers() override {}
    void ShowServerName() override { ++names; }
    void ShowSites() override {}
    void ShowState() override
    {
        canConfirm = selection.CanConfirm();
        state = selection.State();
    }
    void Close() override
    {
        isClosed = true;
        selection.End();
    }
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string& title) override
    {
        EXPECT_EQ(pointer, Default);
        EXPECT_EQ(state, selection.State());  // what the dialog says behind the box
        boxes.push_back(title + ": " + text);
        return BoxAnswer::Ok;
    }
    int Get() const override { return pointer; }
    void Set(int value) override { pointer = value; }

    std::shared_ptr<ScriptedHosts> hosts = std::make_shared<ScriptedHosts>();
    zentrel::ServerAdmin current;
    Settings settings;
    ServerSelection selection;
    Names boxes;
    int pointer = Default;
    int names = 0;
    bool canConfirm = false;
    SitesState state = SitesState::Loaded;
    bool isClosed = false;
};

const std::string kUnlisted =
    "Zentrel Quillet: Unable to retrieve the list of web sites from the server\r\n(Error ";

}  // namespace

TEST(ServerChoices, OffersEachRememberedServerOnceAndTheOneToStartWith)
{
    const struct {
        Names servers;
        int most;
        bool showsLast;
        std::string last, offered;
    } cases[] = {
        {{}, 10, true, "", ">HOST*"},
        {{}, 10, true, "web", ">web"},
        {{" a ", "", "host", "a", "b"}, 10, true, "b", "a host >b"},
        {{"a", "b", "c"}, 2, true, "c", "a b >c"},
        {{"a", "b"}, 2, false, "b", "a b >HOST*"},
    };
    for (const auto& wanted : cases) {
        Settings settings;
        settings.Servers = wanted.servers;
        settings.RememberServers = wanted.most;
        settings.RememberLastServer = wanted.showsLast;
        settings.LastServer = wanted.last;
        const auto choices = OfferServers(settings, "HOST", "HOST");
        std::string offered;
        for (std::size_t i = 0; i < choices.entries.size(); ++i)
            offered += (i == 0 ? "" : " ") + std::string(i == choices.selected ? ">" : "") +
                       choices.entries[i].name + (choices.entries[i].isLocal ? "*" : "");
        EXPECT_EQ(offered, wanted.offered);
    }
}

TEST(ReadSites, ShowsWhereASiteAnswers)
{
    const std::pair<Names, std::string> cases[] = {
        {{":80:", ":443:"}, "(All Unassigned):80, (All Unassigned):443"},
        {{":80:intranet"}, "intranet"},
        {{"*:80:", "  :81: ", "80", "a:80", ":80:h:1"}, "*:80, (All Unassigned):81, h:1"},
        {{}, ""},
    };
    for (const auto& [bindings, text] : cases) EXPECT_EQ(BindingsText(bindings), text);
    EXPECT_LE(BindingsText(Names(1000, ":80:" + std::string(900, 'x'))).size(), 4000U);
}

TEST(ServerSelection, LoadsTheServerAndItsSites)
{
    SelectionRig rig;
    rig.settings.Sites.Add(3);
    rig.Load();
    EXPECT_EQ(rig.hosts->connects, "web01|");
    EXPECT_EQ(rig.Sites(), "[ ]beta[ ]-Alpha[x]gamma");
    EXPECT_TRUE(rig.canConfirm);
    EXPECT_EQ(rig.selection.SiteCount(), 3);
    EXPECT_FALSE(rig.selection.ServerChanged() || rig.selection.SitesConfirmed());
    EXPECT_FALSE(rig.selection.IsCutShort());
    EXPECT_EQ(rig.selection.Sites()[0].address, "(All Unassigned):80");

    // None of the chosen sites is there any more: the first one is checked. Another server: all are.
    rig.settings.Sites.Remove(3);
    rig.selection.Connect();
    EXPECT_EQ(rig.Sites(), "[x]beta[ ]-Alpha[ ]gamma");
    rig.settings.LastServer = "WEB01";
    rig.selection.Connect();
    EXPECT_EQ(rig.Sites(), "[x]beta[x]-Alpha[x]gamma");
}

TEST(ServerSelection, SkipsWhatIsNoSiteAndEndsAtAnErrorInReadingOne)
{
    const struct {
        std::vector<ScriptedSite> sites;
        std::uint32_t enumError;
        std::string listed, box;
        std::uint32_t listError = 0;
    } cases[] = {
        {{{"x", "no"}, {"1a", "no"}, {"01", "no"}, {"0", "no"}, {"5000000000", "no"}, {"9", "yes"}},
         0,
         "[x]yes",
         ""},
        {{{"1", ""}, {"2", "gone", 2, {}, Code::FileNotFound}, {"3", "yes"}}, 0, "[x]yes", ""},
        {{{"1", "a", 0}, {"2", "b", 1}, {"3", "c", 7}}, 0, "[x]a[ ]-b[ ]-c", ""},
        {{{"1", "a"}, {"2", "b", 2, {}, 0x80070005}}, 0, "[ ]a", "5 - Access denied)"},
        {{{"1", "a"}}, 5, "", "5 - Access denied)"},
        {{{"1", "a"}}, 0, "", "1722 - The server is unavailable.)", Code::ServerUnavailable},
        {{}, 0, "", "259 - The server has no web site.)"},
    };
    for (const auto& wanted : cases) {
        SelectionRig rig;
        rig.hosts->hosts["web01"] = {wanted.sites, false, "", wanted.enumError, wanted.listError};
        rig.Load();
        EXPECT_EQ(rig.Sites(), wanted.listed);
        EXPECT_EQ(rig.boxes, wanted.box.empty() ? Names() : Names{kUnlisted + wanted.box});
        EXPECT_EQ(rig.canConfirm, wanted.box.empty());
        EXPECT_EQ(rig.selection.SiteCount(),
                  wanted.box.empty() ? static_cast<int>(rig.selection.Sites().Size()) : 0);
        EXPECT_EQ(rig.pointer, ScreenPointer::Default);
    }
}

TEST(ServerSelection, StopsListingWhereAServerNeverComesToAnEnd)
{
    for (const auto& limits : {SiteReadingLimits{9, 2}, SiteReadingLimits{9, 9, std::chrono::seconds(-1)}}) {
        SelectionRig rig(limits);
        rig.Load();
        const bool hasTime = limits.time.count() > 0;
        EXPECT_EQ(rig.selection.IsCutShort(), hasTime);  // without any site there is nothing to be cut
        EXPECT_EQ(rig.selection.Sites().Size(), hasTime ? 2U : 0U);
    }
}

TEST(ServerSelection, AFailedConnectionKeepsTheListAndDisablesOk)
{
    SelectionRig rig;
    rig.Load();
    const auto before = rig.Sites();
    const std::pair<std::uint32_t, std::string> cases[] = {
        {5, "\r\n(Error 5 - Access is denied.)"},
        {0x80040154, "\r\nIIS Administration runtime is not installed.\r\n(Error 340 - Unknown error)"},
    };
    for (const auto& [code, text] : cases) {
        rig.hosts->connectErrors.push_back(code);
        rig.boxes.clear();
        rig.selection.Connect();
        EXPECT_EQ(rig.boxes, Names{"Zentrel Quillet: Cannot connect to web01." + text});
        EXPECT_FALSE(rig.canConfirm);
        EXPECT_EQ(rig.Sites(), before);
    }
    rig.selection.Connect();
    EXPECT_TRUE(rig.canConfirm);
}

TEST(ServerSelection, TheBoxConnectsWhenItIsLeftWithAnotherName)
{
    const struct {
        std::string typed, connects, name;
        bool isEdited;
    } cases[] = {
        {"  web01 ", "", "web01", false},
        {" HOST ", "HOST|", "HOST", true},
        {"Web01", "Web01|", "Web01", true},
    };
    for (const auto& wanted : cases) {
        SelectionRig rig;
        rig.Load();
        rig.Edit(wanted.typed);
        EXPECT_EQ(rig.selection.ServerChanged(), wanted.isEdited);
        EXPECT_EQ(rig.canConfirm, !wanted.isEdited);
        EXPECT_EQ(rig.hosts->connects, "");
        rig.selection.LeaveServer();
        EXPECT_EQ(rig.hosts->connects, wanted.connects);
        EXPECT_EQ(rig.selection.ServerName(), wanted.name);
        EXPECT_EQ(rig.names, wanted.typed == wanted.name ? 0 : 1);
        EXPECT_EQ(rig.canConfirm, wanted.name != "Web01");
    }
}

TEST(ServerSelection, OkKeepsTheChoice)
{
    SelectionRig rig;
    rig.settings.Servers = {"A", "HOST", "C"};
    rig.settings.RememberServers = 3;
    rig.settings.LastServer = "HOST";
    for (const int site : {2, 7, 42}) rig.settings.Sites.Add(site);
    rig.Load();
    rig.selection.Check(0, false);
    rig.selection.Confirm();
    EXPECT_EQ(rig.boxes, Names{"Select Server and Web Sites: You must select at least one website for "
                               "analysis"});
    EXPECT_FALSE(rig.isClosed || rig.selection.SitesConfirmed() || rig.settings.Sites.Contains(7));

    rig.Edit("web01");
    rig.selection.Confirm();  // not while the sites are another server's
    EXPECT_FALSE(rig.isClosed);
    rig.selection.Connect();
    rig.selection.Check(1, false);
    rig.selection.Confirm();
    EXPECT_TRUE(rig.isClosed && rig.selection.SitesConfirmed());
    EXPECT_EQ(rig.settings.Servers, (Names{"web01", "A", "HOST"}));
    EXPECT_EQ(rig.settings.LastServer, "web01");
    const auto slots = rig.settings.Sites.Slots();
    EXPECT_EQ(std::set(slots.begin(), slots.end()), (std::set{0, 1, 3, 42})) << "other servers' sites stay";
}

TEST(ServerSelection, WhatComesWhileAServerIsWaitedForDoesNoHarm)
{
    SelectionRig rig;
    rig.hosts->onConnect = [&] {
        EXPECT_EQ(rig.pointer, ScreenPointer::Hourglass);
        rig.selection.Connect();
        rig.selection.PickServer(0);
        rig.selection.LeaveServer();
        rig.selection.Confirm();
    };
    rig.Load();
    EXPECT_EQ(rig.hosts->connects, "web01|");
    EXPECT_TRUE(rig.canConfirm && !rig.isClosed && !rig.selection.ServerChanged());

    // The dialog goes meanwhile: nothing is said or shown any more, and a next showing starts afresh.
    for (const auto code : {0U, 5U}) {
        rig.hosts->onConnect = [&] { rig.selection.Unload(); };
        rig.hosts->connectErrors = {0, code};
        rig.Load();
        EXPECT_TRUE(std::exchange(rig.isClosed, false) && !rig.selection.IsLoaded());
        EXPECT_TRUE(rig.boxes.empty());
        EXPECT_EQ(rig.selection.Sites().Size(), 0U);
    }
    rig.hosts->onConnect = nullptr;
    rig.Load();
    EXPECT_TRUE(rig.canConfirm);
}
