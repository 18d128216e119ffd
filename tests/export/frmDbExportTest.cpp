#include "export/ScriptedDatabase.h"
#include "export/SyntheticSnapshot.h"
#include "export/frmDbExport.h"
#include "support/HiveRig.h"
#include "support/KeptBoxes.h"
#include "support/OdbcRig.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTest>

#include <algorithm>

namespace {

// The wizard over a scripted database; the data sources are those of files.
class frmDbExportTest : public testing::Test {
public:
    ~frmDbExportTest() override { script->Release(); }

    void Open()
    {
        store = hives.Open();
        auto access = AccessTo(script);
        access.connecting = connecting;
        access.silence = std::chrono::milliseconds(2'000);
        access.farewell = std::chrono::milliseconds(100);
        dialog = std::make_unique<frmDbExport>(*store, snapshot, boxes, nullptr, access);
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <class Control>
    Control* Find(const char* name)
    {
        auto* const found = dialog->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
    std::string Text(const char* label) { return Find<QLabel>(label)->text().trimmed().toStdString(); }
    std::string Page() { return Find<QStackedWidget>("pages")->currentWidget()->objectName().toStdString(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(dialog->focusWidget(), key, with);
        if (with == Qt::AltModifier) QTest::qWait(150);  // a button that is pressed so comes up again
    }
    void Type(const char* text) { QTest::keyClicks(dialog->focusWidget(), QLatin1String(text)); }
    bool ReachesPage(const char* page)
    {
        return QTest::qWaitFor([&] { return Page() == page; });
    }
    // From the first page to the preview, by the keyboard.
    void WalkToPreview()
    {
        Press(Qt::Key_Down);
        Press(Qt::Key_Tab);
        Type("me");
        Press(Qt::Key_Tab);
        Type("secret");
        for (int i = 0; i < 3; ++i) Press(Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(Page(), "pagPreview");
    }

    OdbcRig rig;
    HiveRig hives;
    std::unique_ptr<RegistryStore> store;
    SyntheticSnapshot snapshot{100};
    KeptBoxes boxes;
    std::chrono::milliseconds connecting{2'000};
    SharedScript script = std::make_shared<DatabaseScript>();
    std::unique_ptr<frmDbExport> dialog;
};

TEST_F(frmDbExportTest, ListsTheDataSourcesInTheirOrder)
{
    rig.AddSource("a second", {{"Driver", "x"}});
    Open();
    auto* const sources = Find<QComboBox>("Combo1");
    ASSERT_EQ(sources->count(), 2);
    EXPECT_EQ(sources->itemText(0).toStdString(), rig.Sqlite());
    EXPECT_EQ(sources->itemText(1), QLatin1String("a second"));
    EXPECT_EQ(sources->currentIndex(), -1);
    EXPECT_EQ(dialog->focusWidget(), sources);
    EXPECT_EQ(dialog->windowTitle(), QLatin1String("Zentrel Report Export to Database"));
    const struct {
        const char* name;
        const char* caption;
        bool isEnabled;
    } buttons[] = {{"cmdTest", "&Test Connectivity", false},
                   {"cmdPrevious", "< &Previous", false},
                   {"cmdNext", "&Next >", true},
                   {"cmdCancel", "&Cancel", true}};
    for (const auto& [name, caption, isEnabled] : buttons) {
        EXPECT_EQ(Button(name)->text(), QLatin1String(caption));
        EXPECT_EQ(Button(name)->isEnabled(), isEnabled) << name;
    }
    EXPECT_EQ(Text("Label1(0)"), "Please Select ODBC Data Source:");
    EXPECT_EQ(Text("Label1(1)"), "Database UserID:");
    EXPECT_EQ(Text("Label1(2)"), "Database Password:");
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Page(), "pagSource");
    EXPECT_EQ(dialog->focusWidget(), sources);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"Zentrel Report Export to Database: "
                                                    "Please select an ODBC data source first."});
    sources->setCurrentIndex(1);
    EXPECT_TRUE(Button("cmdTest")->isEnabled());
    sources->setCurrentIndex(-1);
    EXPECT_FALSE(Button("cmdTest")->isEnabled());
    Find<QLineEdit>("Password")->setText(QStringLiteral("abc"));
    EXPECT_EQ(Find<QLineEdit>("Password")->displayText(), QLatin1String("***"));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(Find<QLineEdit>("Password")->text(), QString());
}

TEST_F(frmDbExportTest, WithoutDataSourcesItSaysHowToDefineOne)
{
    setenv("ODBCINI", "/dev/null", 1);
    Open();
    EXPECT_EQ(Find<QComboBox>("Combo1")->count(), 0);
    EXPECT_NE(Text("lblNoSources").find("odbc.ini"), std::string::npos);
    EXPECT_FALSE(Button("cmdTest")->isEnabled());
    Press(Qt::Key_Return);
    EXPECT_EQ(Page(), "pagSource");
}

TEST_F(frmDbExportTest, TellsWhatATestFoundAndCanStopIt)
{
    connecting = std::chrono::milliseconds(300);
    Open();
    Find<QComboBox>("Combo1")->setCurrentIndex(0);
    const auto shows = [&](const std::string& text) {
        return QTest::qWaitFor([&] { return Text("lblTestResult") == text; });
    };
    const struct {
        int failAt, hangAt;
        bool isReadOnly;
        const char* text;
    } cases[] = {
        {0, 0, false, "Connected to Script through libscript.so."},
        {0, 0, true, "Connected to Script through libscript.so, for reading only."},
        {3, 0, false, "Not connected: 28000: wrong <b>password</b>"},
        {0, 4, false, "The data source does not answer."},
    };
    script->failure = "28000: wrong <b>password</b>";
    for (const auto& [failAt, hangAt, isReadOnly, text] : cases) {
        script->failAt = failAt;
        script->hangAt = hangAt;
        script->isReadOnly = isReadOnly;
        Button("cmdTest")->click();
        EXPECT_EQ(Button("cmdTest")->text(), QLatin1String("&Stop test"));
        EXPECT_TRUE(shows(text)) << Text("lblTestResult");
        EXPECT_EQ(Button("cmdTest")->text(), QLatin1String("&Test Connectivity"));
    }
    Find<QLineEdit>("UserID")->setText(QStringLiteral("you"));
    EXPECT_EQ(Text("lblTestResult"), "") << "it was another login";

    connecting = std::chrono::hours(1);
    Open();
    Find<QComboBox>("Combo1")->setCurrentIndex(0);
    script->hangAt = 5;
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(script->AwaitHang());
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(shows("The test was stopped."));
}

TEST_F(frmDbExportTest, TheKeyboardWalksThroughAllPages)
{
    Open();
    WalkToPreview();
    auto* const tables = Find<QTableWidget>("grdTables");
    EXPECT_EQ(tables->rowCount(), 6);
    EXPECT_EQ(dialog->focusWidget(), tables);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    auto* const rows = Find<QTableWidget>("grdRows");
    EXPECT_EQ(rows->rowCount(), 20);
    EXPECT_EQ(rows->item(1, 2)->text(), QStringLiteral("/a/'1\u00E4.html"));
    EXPECT_TRUE(Find<QPlainTextEdit>("txtSql")->toPlainText().startsWith(
        QLatin1String("CREATE TABLE \"quillet_entries\" (\"run\" BIGINT, ")));
    Press(Qt::Key_P, Qt::AltModifier);
    Press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(Page(), "pagChoice");
    Press(Qt::Key_Space);  // no sites
    Press(Qt::Key_Return);
    EXPECT_FALSE(Find<QLineEdit>("txtSites")->isEnabled());
    Press(Qt::Key_Return);
    EXPECT_EQ(tables->rowCount(), 5);
    ASSERT_EQ(rows->rowCount(), 1);
    std::string run;
    for (const int column : {0, 1, 2, 5, 6}) run += rows->item(0, column)->text().toStdString() + '|';
    EXPECT_EQ(run, "?|web'1\"; DROP TABLE x|2023-03-15 18:00:00||100|");
    EXPECT_EQ(Button("cmdNext")->text(), QLatin1String("&Finish"));
    Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(ReachesPage("pagSummary"));
    EXPECT_EQ(Text("lblOutcome"), "The export is done. It is run number 7.");
    auto* const written = Find<QTableWidget>("grdWritten");
    ASSERT_EQ(written->rowCount(), 5);
    EXPECT_EQ(written->item(1, 2)->text(), QLatin1String("100"));
    EXPECT_EQ(Find<QLineEdit>("Password")->text(), QString());
    EXPECT_EQ(script->Told().front(), "open " + rig.Sqlite() + " me secret");
    EXPECT_FALSE(Button("cmdPrevious")->isEnabled() || Button("cmdCancel")->isEnabled());
    Press(Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(frmDbExportTest, WrongNamesAndNothingWantedStopTheWalk)
{
    Open();
    Find<QComboBox>("Combo1")->setCurrentIndex(0);
    Press(Qt::Key_Return);
    for (const auto* box : {"chkSites", "chkEntries", "chkTypes", "chkTotals", "chkCounters"}) {
        EXPECT_TRUE(Button("cmdNext")->isEnabled()) << box;
        Find<QCheckBox>(box)->setChecked(false);
    }
    EXPECT_FALSE(Button("cmdNext")->isEnabled());
    Find<QCheckBox>("chkTypes")->setChecked(true);
    Press(Qt::Key_Return);
    Find<QLineEdit>("txtTypes")->setText(QStringLiteral("QUILLET_RUNS"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Page(), "pagTables");
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(dialog->focusWidget()->objectName(), QLatin1String("txtRuns"));
}

TEST_F(frmDbExportTest, AHangingDatabaseIsCancelledOrLeftBehind)
{
    for (const bool isClosed : {false, true}) {
        script->Release();
        script = std::make_shared<DatabaseScript>();
        script->hangAt = 20;
        script->isDeaf = isClosed;
        Open();
        WalkToPreview();
        Press(Qt::Key_F, Qt::AltModifier);
        EXPECT_TRUE(script->AwaitHang());
        EXPECT_EQ(Page(), "pagRun");
        EXPECT_FALSE(Button("cmdNext")->isEnabled() || Button("cmdPrevious")->isEnabled());
        if (isClosed) {
            dialog->close();
            EXPECT_FALSE(dialog->isVisible());
            continue;
        }
        Press(Qt::Key_Escape);
        EXPECT_TRUE(ReachesPage("pagSummary"));
        EXPECT_EQ(Text("lblOutcome"), "The export was cancelled.");
        EXPECT_TRUE(
            Find<QPlainTextEdit>("txtDetails")->toPlainText().contains(QLatin1String("as it was before")));
        const auto told = script->Told();
        EXPECT_EQ(std::count(told.begin(), told.end(), "rollback"), 1);
        Press(Qt::Key_P, Qt::AltModifier);
        EXPECT_EQ(Page(), "pagPreview");
        script->hangAt = 0;
        Press(Qt::Key_F, Qt::AltModifier);
        EXPECT_TRUE(ReachesPage("pagSummary"));
        EXPECT_EQ(Text("lblOutcome"), "The export is done. It is run number 7.");
        EXPECT_TRUE(script->Told().back() == "commit");
    }
}

}  // namespace
