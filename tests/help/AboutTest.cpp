#include "base/SystemError.h"
#include "help/VersionText.h"
#include "help/WebSite.h"
#include "help/frmAbout.h"
#include "settings/SettingsKey.h"
#include "support/HiveRig.h"
#include "support/KeptBoxes.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <array>

namespace {

TEST(WebSite, OnlyAWebAddressOfTheSettingsIsTaken)
{
    HiveRig rig;
    const auto store = rig.Open();
    EXPECT_EQ(WebSiteAddress(*store), kWebSite);
    SettingsKey::Create(*store);
    SettingsKey key(*store);
    const struct {
        const char *setting, *address;
    } cases[] = {{" https://intranet.example/quillet ", "https://intranet.example/quillet"},
                 {"file:///bin/sh", kWebSite},
                 {"", kWebSite}};
    for (const auto& [setting, address] : cases) {
        key.SetText("WebSite", setting);
        EXPECT_EQ(WebSiteAddress(*store), address) << setting;
    }
}

struct ScriptedStarter : ProgramStarter {
    bool Start(const std::filesystem::path& program) override
    {
        started += program.string() + ' ';
        return works;
    }
    std::string started;
    bool works = true;
};

TEST(FrmAbout, TellsTheVersionAndStartsTheSystemInformation)
{
    const std::string nothing = "Zentrel Quillet: System information is unavailable at this time";
    const struct {
        const char* program;
        bool works;
        std::string started;
        std::vector<std::string> shown;
    } cases[] = {{"/usr/bin/info", true, "/usr/bin/info ", {}},
                 {"/usr/bin/info", false, "/usr/bin/info ", {nothing}},
                 {"", true, "", {nothing}}};
    for (const auto& [program, works, started, shown] : cases) {
        HiveRig rig;
        std::string trouble;
        const auto store =
            RegistryStore::Open(rig.User(), rig.Machine(), trouble,
                                {{"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", [text = std::string(program)] {
                                      return std::vector<AnsweredValue>{{"PATH", text}};
                                  }}});
        ScriptedStarter starter;
        starter.works = works;
        KeptBoxes boxes;
        frmAbout window({*store, starter, boxes});
        const auto version = window.findChild<QLabel*>(QStringLiteral("lblVersion"))->text();
        EXPECT_TRUE(version.startsWith(QStringLiteral("Version 1.0.0"))) << version.toStdString();
        auto* const button = window.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"));
        window.show();
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(starter.started, started);
        EXPECT_EQ(boxes.shown, shown);
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    }
}

}  // namespace

TEST(VersionText, TheRevisionHasThreeDigitsButTwoWhenItIsZero)
{
    const struct {
        int major, minor, revision;
        const char* text;
    } cases[] = {{1, 0, 0, "Version 1.0.00"},
                 {1, 0, 7, "Version 1.0.007"},
                 {2, 13, 42, "Version 2.13.042"},
                 {10, 0, 12345, "Version 10.0.12345"}};
    for (const auto& [major, minor, revision, text] : cases)
        EXPECT_EQ(VersionText(major, minor, revision), text);
}
