// The main window together with what it keeps from one run to the next.
#include "WindowRig.h"

#include "server/frmServer.h"
#include "settings/SettingsKey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

namespace {

using Bytes = std::vector<std::uint8_t>;

class KeptSettings : public WindowRig {
public:
    // A start as the settings say, without anything from the command line.
    void Start(const std::function<void(frmServer&)>& inDialog = {})
    {
        Open();
        state->first.reset();
        state->settings = state->settingsStore.Load();
        dialogs = 0;
        if (inDialog) AnswerDialog(inDialog);
        window->Display();
    }

    void AnswerDialog(const std::function<void(frmServer&)>& answer)
    {
        QTimer::singleShot(0, window.get(), [this, answer] {
            auto* const dialog = qobject_cast<frmServer*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return AnswerDialog(answer);
            ++dialogs;
            answer(*dialog);
        });
    }

    bool IsChecked(const char* item) const { return Find<QAction>(item)->isChecked(); }

    int dialogs = 0;
};

TEST_F(KeptSettings, AFirstStartAsksForAServerBeforeItConnects)
{
    FillStore();
    Start([this](frmServer& dialog) {
        EXPECT_EQ(LabelText("Connection"), "  Not connected");
        dialog.cmdCancel->click();
    });
    EXPECT_EQ(dialogs, 1);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(LabelText("Connection"), "  Not connected");
    EXPECT_EQ(TreeText(), "");
    EXPECT_EQ(window->focusWidget(), window->trvFiles);
}

TEST_F(KeptSettings, TheChosenServerAndSitesAreThereAtTheNextStart)
{
    FillStore();
    Start([](frmServer& dialog) {
        auto& sites = *dialog.lstSites->model();
        sites.setData(sites.index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
        sites.setData(sites.index(1, 0), Qt::Checked, Qt::CheckStateRole);
        dialog.cmdOK->click();
    });
    constexpr const char* kSecondSite = "Internet Information Services\n Empty (nothing cached)\n";
    EXPECT_EQ(TreeText(), kSecondSite);
    EXPECT_EQ(state->settings.Servers, std::vector<std::string>{"here"});
    state->settings.StartConnectDialog = false;
    window->close();

    Start();
    EXPECT_EQ(TreeText(), kSecondSite);
    EXPECT_EQ(LabelText("Connection"), "  Connected to here");

    // Other sites of the same server are scanned without connecting again.
    AnswerDialog([](frmServer& dialog) {
        dialog.cmdSelAll->click();
        dialog.cmdOK->click();
    });
    Trigger("mnuFile_Sites");
    EXPECT_EQ(LabelText("Status"), "Found: 3 Files");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(KeptSettings, PlacementViewsAndIntervalAreSavedAsTheSwitchesSay)
{
    Start([](frmServer& dialog) { dialog.reject(); });
    state->settings.StartConnectDialog = false;
    window->move(40, 50);
    window->resize(700, 500);
    for (const auto* const command : {"mnuToolbars_Main", "mnuRefresh_Item(2)", "mnuInfo_Item(1)"})
        Trigger(command);
    window->close();
    EXPECT_EQ(SettingsKey(*registry).Bytes("Panels"), (Bytes{1, 70, 0, 55, 1, 55, 1, 50}));

    Start();
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_EQ(window->pos(), QPoint(40, 50));
    EXPECT_TRUE(window->Toolbar->isHidden() && !IsChecked("mnuToolbars_Main"));
    EXPECT_TRUE(IsChecked("mnuRefresh_Item(2)") && !IsChecked("mnuRefresh_Item(1)"));
    EXPECT_TRUE(window->tmrStats->Interval() == 10000 && window->tmrStats->IsRunning());

    // Nothing but the general settings is saved with the switches off, except on command.
    auto& settings = state->settings;
    settings.SaveWindowPos = settings.SavePanels = settings.SaveView = settings.SaveAutoStats = false;
    for (const auto* const command : {"mnuView_StatusBar", "mnuRefresh_Item(4)", "mnuTools_Save"})
        Trigger(command);
    EXPECT_EQ(SettingsKey(*registry).Number("SaveView", 7), 1) << "nor the general settings on command";
    for (const auto* const command : {"mnuToolbars_Main", "mnuRefresh_Item(0)", "mnuInfo_Item(0)"})
        Trigger(command);
    window->resize(600, 400);
    window->close();
    EXPECT_EQ(SettingsKey(*registry).Bytes("Panels"), (Bytes{1, 70, 1, 55, 1, 55, 1, 50}));

    Start();
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_TRUE(window->StatusBar->isHidden() && window->Toolbar->isHidden());
    EXPECT_FALSE(state->settings.SaveView);
    state->settings.SaveWindowPos = true;
    window->showMaximized();
    window->close();

    Start();
    EXPECT_TRUE(window->isMaximized());
}

TEST_F(KeptSettings, AWindowThatIsClosedWhileItAsksForAServerGoesDown)
{
    FillStore();
    Start([this](frmServer&) { window->close(); });
    EXPECT_TRUE(window->IsUnloaded() && !window->isVisible());
    EXPECT_EQ(TreeText(), "");
}

TEST_F(KeptSettings, AWindowThatIsClosedOverItsOptionsGoesDownWithoutTakingThem)
{
    Open();
    window->Display();
    QTimer::singleShot(0, window.get(), [this] {
        auto* const dialog = QApplication::activeModalWidget();
        dialog->findChild<QAbstractButton*>(QStringLiteral("chkSaveView"))->setChecked(false);
        window->close();
        EXPECT_FALSE(window->IsUnloaded());
    });
    window->ShowOptions();
    EXPECT_TRUE(window->IsUnloaded());
    EXPECT_TRUE(state->settings.SaveView);
}

}  // namespace
