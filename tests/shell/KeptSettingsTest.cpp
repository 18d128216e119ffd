// The main window together with what it keeps from one run to the next.
#include "WindowRig.h"

#include "server/frmServer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

namespace {

class KeptSettings : public WindowRig {
public:
    // A start as the settings say, without anything from the command line.
    void Start(const std::function<void(frmServer&)>& inDialog = {})
    {
        Open(store.Folder());
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

    bool IsChecked(const char* item) const
    {
        return window->findChild<QAction*>(QLatin1String(item))->isChecked();
    }

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
    EXPECT_EQ(window->size(), QSize(800, 600));  // 12000 by 9000 twips at 96 dots per inch
    EXPECT_TRUE(IsChecked("mnuRefresh_Item(1)"));
    EXPECT_EQ(window->tmrStats->Interval(), 5000);
}

TEST_F(KeptSettings, TheChosenServerAndSitesAreThereAtTheNextStart)
{
    FillStore();
    Start([](frmServer& dialog) {
        dialog.lstSites->model()->setData(dialog.lstSites->model()->index(0, 0), Qt::Unchecked,
                                          Qt::CheckStateRole);
        dialog.lstSites->model()->setData(dialog.lstSites->model()->index(1, 0), Qt::Checked,
                                          Qt::CheckStateRole);
        dialog.cmdOK->click();
    });
    constexpr const char* kSecondSite = "Internet Information Services\n Empty (nothing cached)\n";
    EXPECT_EQ(TreeText(), kSecondSite);
    EXPECT_EQ(LabelText("lblTopStrip"), "here - Local - 2 web sites");
    EXPECT_EQ(window->focusWidget(), window->trvFiles);
    EXPECT_EQ(state->settings.Servers, std::vector<std::string>{"here"});
    state->settings.StartConnectDialog = false;
    window->close();

    Start();
    EXPECT_EQ(TreeText(), kSecondSite);
    EXPECT_EQ(LabelText("Connection"), "  Connected to here");
    EXPECT_EQ(LabelText("lblTopStrip"), "here - Local - 0 web sites");  // no dialog has counted them

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
    Trigger("mnuToolbars_Main");
    Trigger("mnuRefresh_Item(2)");
    EXPECT_TRUE(window->Toolbar->isHidden());
    window->close();

    Start();
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_EQ(window->pos(), QPoint(40, 50));
    EXPECT_TRUE(window->Toolbar->isHidden() && !IsChecked("mnuToolbars_Main"));
    EXPECT_TRUE(IsChecked("mnuRefresh_Item(2)") && !IsChecked("mnuRefresh_Item(1)"));
    EXPECT_EQ(window->tmrStats->Interval(), 10000);

    // Nothing but the general settings is saved with the switches off, except on command.
    auto& settings = state->settings;
    settings.SaveWindowPos = settings.SaveView = settings.SaveAutoStats = false;
    Trigger("mnuView_StatusBar");
    Trigger("mnuRefresh_Item(4)");
    Trigger("mnuTools_Save");
    window->resize(600, 400);
    Trigger("mnuToolbars_Main");
    Trigger("mnuRefresh_Item(0)");
    window->close();

    Start();
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_TRUE(window->StatusBar->isHidden() && window->Toolbar->isHidden());
    EXPECT_TRUE(IsChecked("mnuRefresh_Item(4)") && !window->tmrStats->IsRunning());
    EXPECT_FALSE(state->settings.SaveView);
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
    Open(store.Folder());
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
