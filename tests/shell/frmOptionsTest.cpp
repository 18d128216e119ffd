#include "shell/WindowRig.h"
#include "shell/frmOptions.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace {

constexpr const char* kRefusal =
    "Quillet Options: 'Remember last servers' value must be a number in 0..200 range";

class frmOptionsTest : public testing::Test {
public:
    frmOptionsTest() { Open(); }

    void Open()
    {
        dialog = std::make_unique<frmOptions>(settings, boxes);
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }

    template <class Control>
    Control* Find(const std::string& name)
    {
        auto* const found = dialog->findChild<Control*>(QString::fromStdString(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    void Click(const char* name) { QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton); }
    void Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(dialog->focusWidget(), static_cast<Qt::Key>(key), with);
    }
    std::string Page() { return Tabs()->tabText(Tabs()->currentIndex()).toStdString(); }
    QTabWidget* Tabs() { return Find<QTabWidget>("tabOptions"); }
    QLineEdit* Box() { return Find<QLineEdit>("txtLastServers"); }

    // Types a text into the box for the number, where the focus then is.
    void Type(const char* text)
    {
        Tabs()->setCurrentIndex(1);
        Box()->setFocus();
        Box()->selectAll();
        QTest::keyClicks(Box(), QLatin1String(text));
        if (*text == '\0') Press(Qt::Key_Delete);
    }

    Settings settings;
    ScriptedBoxes boxes;
    std::unique_ptr<frmOptions> dialog;
};

TEST_F(frmOptionsTest, OkTakesWhatTheUserChose)
{
    EXPECT_EQ(dialog->focusWidget(), Find<QRadioButton>("optOnStart(2)"));
    Press(Qt::Key_L, Qt::AltModifier);
    QTest::qWait(150);  // a mnemonic shows the button pressed for a moment
    Type(" 200 ");
    Press(Qt::Key_N, Qt::AltModifier);
    QTest::qWait(150);
    Press(Qt::Key_Tab, Qt::ControlModifier);
    for (const char* box : {"chkSaveWnd", "chkSaveAutoStats"}) Find<QCheckBox>(box)->click();
    Press(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_TRUE(settings.RememberLastServer && !settings.StartConnectDialog);
    EXPECT_EQ(settings.RememberServers, 200);
    EXPECT_EQ(settings.StartRemoteReg, RemoteRegPolicy::Never);
    EXPECT_FALSE(settings.SaveWindowPos || settings.SaveAutoStats);
    EXPECT_TRUE(settings.SavePanels && settings.SaveView);
    EXPECT_TRUE(boxes.shown.empty());

    Open();
    EXPECT_EQ(Box()->text(), "200");
    EXPECT_TRUE(Find<QRadioButton>("optRemReg(0)")->isChecked());
    EXPECT_TRUE(Find<QCheckBox>("chkSaveView")->isChecked() && !Find<QCheckBox>("chkSaveWnd")->isChecked());
    Find<QCheckBox>("chkSaveView")->click();
    Click("cmdApply");
    EXPECT_TRUE(dialog->isVisible() && !settings.SaveView);
}

TEST_F(frmOptionsTest, CtrlTabGoesRoundThePages)
{
    for (const char* page : {"Servers", "Other", "Startup"}) {
        Press(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Page(), page);
    }
    Find<QPushButton>("cmdApply")->setFocus();  // below the pages
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Page(), "Servers");
}

TEST_F(frmOptionsTest, TheKeyboardLeadsToTheChosenOption)
{
    const auto leads = [this](const char* option) {
        Tabs()->setCurrentIndex(1);
        Box()->setFocus();
        Press(Qt::Key_Tab);
        EXPECT_EQ(dialog->focusWidget()->objectName().toStdString(), option);
        Box()->setFocus();
        Press(Qt::Key_S, Qt::AltModifier);
        EXPECT_EQ(dialog->focusWidget()->objectName().toStdString(), option);
    };
    leads("optRemReg(2)");
    Press(Qt::Key_Down);
    leads("optRemReg(1)");
}

TEST_F(frmOptionsTest, AWrongNumberIsRefusedOnceHoweverTheBoxIsLeft)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Tab", [this] { Press(Qt::Key_Tab); }},
        {"another page", [this] { Tabs()->setCurrentIndex(2); }},
        {"another control", [this] { Click("optRemReg(0)"); }},
        {"Enter", [this] { Press(Qt::Key_Return); }},
        {"OK", [this] { Click("cmdOK"); }},
        {"Apply's mnemonic", [this] { Press(Qt::Key_A, Qt::AltModifier); }},
    };
    for (const auto& [way, leave] : ways) {
        SCOPED_TRACE(way);
        Open();
        Type("201");
        leave();
        QTest::qWait(150);
        EXPECT_EQ(boxes.shown, std::vector<std::string>{kRefusal});
        EXPECT_TRUE(dialog->isVisible() && Box()->hasFocus());
        EXPECT_EQ(Page(), "Servers");
        EXPECT_EQ(settings.RememberServers, 10);
        boxes.shown.clear();
    }
}

TEST_F(frmOptionsTest, CancellingNeitherComplainsNorCopies)
{
    const std::function<void()> ways[] = {
        [this] { Click("cmdCancel"); },
        [this] { Press(Qt::Key_Escape); },
        [this] { dialog->close(); },
    };
    for (const auto& cancel : ways) {
        Open();
        Find<QCheckBox>("chkSaveView")->setChecked(false);
        Type("ten");
        cancel();
        QTest::qWait(1);
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->result(), QDialog::Rejected);
        EXPECT_TRUE(settings.SaveView);
    }
    EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
