#include "help/frmAbout.h"

#include "support/HiveRig.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

struct ScriptedStarter : ProgramStarter {
    bool Start(const std::filesystem::path& program) override
    {
        started += program.string() + ' ';
        return works;
    }
    std::string started;
    bool works = true;
};

struct KeptBoxes : MessageBoxes {
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string& title) override
    {
        shown += title + ": " + text;
        return BoxAnswer::Ok;
    }
    std::string shown;
};

TEST(FrmAbout, TellsTheVersionAndStartsTheSystemInformation)
{
    const std::string nothing = "Zentrel Quillet: System information is unavailable at this time";
    const struct {
        const char* program;
        bool works;
        std::string started, shown;
    } cases[] = {{"/usr/bin/info", true, "/usr/bin/info ", ""},
                 {"/usr/bin/info", false, "/usr/bin/info ", nothing},
                 {"", true, "", nothing}};
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
