#include "base/SystemError.h"
#include "help/SystemInformationPath.h"
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
                 {"HTTP://a.example", "HTTP://a.example"},
                 {"file:///bin/sh", kWebSite},
                 {"intranet.example", kWebSite},
                 {"", kWebSite}};
    for (const auto& [setting, address] : cases) {
        key.SetText("WebSite", setting);
        EXPECT_EQ(WebSiteAddress(*store), address) << setting;
    }
    key.SetNumber("WebSite", 1);
    EXPECT_EQ(WebSiteAddress(*store), kWebSite);
}

TEST(SystemInformationPath, ThePathComesFirstThenTheSharedToolsThatAreThere)
{
    const std::string info = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
    const std::string location = "SOFTWARE\\Microsoft\\Shared Tools Location";
    using MachineValues = std::vector<std::array<std::string, 3>>;  // key, name, text
    const auto pathOf = [](const MachineValues& values, bool isThere) {
        HiveRig rig;
        std::string trouble;
        {
            const auto store = RegistryStore::Open(rig.Machine(), rig.Folder() / "none", trouble);
            for (const auto& [key, name, text] : values) {
                const auto opened = store->CreateKey(kCurrentUser, key, kKeyAllAccess);
                const auto whole = text == "tools" ? rig.Folder().string() : text;
                EXPECT_EQ(SetText(*store, opened.key, name, whole + '\0'), 0U);
            }
        }
        if (isThere) rig.Put(rig.Folder() / "MSINFO32.EXE", "x");
        const auto store = RegistryStore::Open(rig.User(), rig.Machine(), trouble, {});
        const auto path = SystemInformationPath(*store);
        return path.parent_path() == rig.Folder() ? "tools/" + path.filename().string() : path.string();
    };
    EXPECT_EQ(pathOf({{info, "PATH", "/opt/a"}, {location, "MSINFO", "tools"}}, true), "/opt/a");
    EXPECT_EQ(pathOf({{info, "OTHER", "/opt/a"}, {location, "MSINFO", "tools"}}, true), "tools/MSINFO32.EXE");
    EXPECT_EQ(pathOf({{location, "MSINFO", "tools"}}, false), "");
    EXPECT_EQ(pathOf({}, true), "");
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
        EXPECT_EQ(window.windowTitle(), QStringLiteral("About Zentrel Quillet"));
        const auto text = [&window](const char* name) {
            return window.findChild<QLabel*>(QLatin1String(name))->text();
        };
        EXPECT_EQ(text("lblTitle"), QStringLiteral("Zentrel Quillet"));
        EXPECT_TRUE(text("lblVersion").startsWith(QStringLiteral("Version 1.0.0")))
            << text("lblVersion").toStdString();
        EXPECT_TRUE(text("lblLegal").contains(QStringLiteral("Apache License")));
        auto* const button = window.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"));
        EXPECT_EQ(button->text(), QStringLiteral("&System Info..."));
        window.show();
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(starter.started, started);
        EXPECT_EQ(boxes.shown, shown);
        EXPECT_TRUE(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    }
}

}  // namespace
