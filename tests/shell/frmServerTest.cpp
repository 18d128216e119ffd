#include "server/frmServer.h"

#include "shell/WindowRig.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLineEdit>
#include <QTimer>

namespace {

// The dialog over a real service: site 1 runs, site 2 is stopped, site 3 has a name that means no good.
class frmServerTest : public testing::Test {
public:
    frmServerTest()
    {
        PutSite(1, "Docs", 2, {":80:"});
        PutSite(2, "Archive", 4, {":8080:", "10.0.0.5:80:old"});
        PutSite(3, "<b>x</b>\n" + std::string(300, 'y'), 2, {});
        settings.Servers = {"here", "localhost", "nowhere"};
        settings.LastServer = "here";
        settings.Sites.Add(2);
    }

    void PutSite(std::uint32_t number, const std::string& name, std::uint32_t state,
                 const std::vector<std::string>& bindings)
    {
        zentrel::PropertySet properties;
        properties.SetText(zentrel::Prop::ServerComment, name);
        properties.SetNumber(zentrel::Prop::ServerState, state);
        properties.SetTextList(zentrel::Prop::ServerBindings, bindings);
        store.Put(zentrel::SiteKey(number), properties);
    }

    // Shows the dialog and runs the script once it can be used; it is cancelled if it is still there then.
    void Show(const std::function<void(frmServer&)>& script)
    {
        boxes.shown.clear();
        frmServer dialog(selection, nullptr);
        QTimer::singleShot(0, &dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            script(dialog);
            if (dialog.isVisible()) dialog.reject();
        });
        dialog.ShowModal();
        EXPECT_FALSE(selection.IsLoaded());
    }

    static void Type(frmServer& dialog, const QString& text)
    {
        dialog.cmbServer->setFocus();
        dialog.cmbServer->lineEdit()->selectAll();
        QTest::keyClicks(dialog.cmbServer, text);
    }
    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    std::string Checked() const
    {
        std::string text;
        for (std::size_t row = 0; row < selection.Sites().Size(); ++row)
            if (selection.Sites()[row].isChecked) text += std::to_string(selection.Sites()[row].number);
        return text;
    }

    TestStore store;
    ScriptedBoxes boxes;
    QtScreenPointer pointer;
    Settings settings;
    std::shared_ptr<zentrel::Transport> transport =
        std::make_shared<zentrel::EmbeddedTransport>(store.Folder(), "here");
    zentrel::ServerAdmin current{transport};
    ServerSelection selection{transport, current, "here", settings, {boxes, pointer}};
};

}  // namespace

TEST_F(frmServerTest, ShowsTheServersAndTheSitesAsPlainText)
{
    Show([&](frmServer& dialog) {
        EXPECT_EQ(dialog.cmbServer->count(), 3);
        const auto& sites = *dialog.lstSites->model();
        QAbstractItemModelTester tester(dialog.lstSites->model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
        EXPECT_EQ(sites.index(1, 1).data().toString(), QStringLiteral("(All Unassigned):8080, old"));
        EXPECT_TRUE(sites.index(2, 0).data().toString().startsWith(QStringLiteral("<b>x</b>\u240Ayyy")));
        EXPECT_EQ(sites.index(1, 0).data(Qt::AccessibleTextRole).toString(),
                  QStringLiteral("Archive, not running"));
        EXPECT_EQ(Checked(), "2");
        EXPECT_TRUE(dialog.cmdOK->isEnabled() && dialog.cmdOK->isDefault());
    });
    EXPECT_FALSE(selection.SitesConfirmed());
}

TEST_F(frmServerTest, ChecksByMouseAndKeyAndSortsAndKeepsTheChoice)
{
    Show([&](frmServer& dialog) {
        auto& list = *dialog.lstSites;
        const auto& header = *list.header();
        const auto cell = [&](int row) { return list.visualRect(list.model()->index(row, 0)); };
        const auto name = [&](int row) { return cell(row).center(); };
        const auto mark = [&](int row) { return QPoint(cell(row).left() + 10, cell(row).center().y()); };
        Click(dialog.cmdUnselAll);
        EXPECT_EQ(Checked(), "");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, mark(0));
        EXPECT_EQ(Checked(), "1");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, name(1));
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, name(1));
        EXPECT_EQ(Checked(), "12");

        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, name(0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, name(2));
        Click(dialog.cmdToggle);
        EXPECT_EQ(Checked(), "23");
        QTest::keyClick(&list, Qt::Key_Space);  // the current row's mark goes, and its fellow's
        EXPECT_EQ(Checked(), "2");

        const QPoint title(header.sectionViewportPosition(0) + 5, header.height() / 2);
        Click(dialog.cmdSelAll);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, title);
        EXPECT_EQ(Checked(), "321");
        Click(dialog.cmdOK);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(selection.SitesConfirmed());
    EXPECT_TRUE(settings.Sites.Contains(1) && settings.Sites.Contains(3));
}

TEST_F(frmServerTest, AnEditedNameIsConnectedOnceAndOnlyWhereItShould)
{
    const auto enter = [](Qt::KeyboardModifiers keys) {
        return [keys](frmServer& dialog) { QTest::keyClick(dialog.cmbServer, Qt::Key_Return, keys); };
    };
    const struct {
        std::function<void(frmServer&)> act;
        bool connects, staysOpen;
    } cases[] = {
        {[](frmServer& dialog) { Click(dialog.cmdCancel); }, false, false},
        {[](frmServer& dialog) { QTest::keyClick(dialog.cmbServer, Qt::Key_Escape); }, false, false},
        {[](frmServer& dialog) { Click(dialog.cmdOK); }, false, true},
        {[](frmServer& dialog) { Click(dialog.cmdConnect); }, true, true},
        {[](frmServer& dialog) { QTest::keyClick(dialog.cmbServer, Qt::Key_Tab); }, true, true},
        {enter(Qt::NoModifier), true, true},
        {enter(Qt::ShiftModifier), false, true},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& wanted = cases[i];
        Show([&](frmServer& dialog) {
            Type(dialog, QStringLiteral("nowhere"));  // which is in the list too
            EXPECT_FALSE(dialog.cmdOK->isEnabled());
            EXPECT_EQ(dialog.lstSites->model()->rowCount(), 3);
            wanted.act(dialog);
            QTest::qWait(1);
            EXPECT_EQ(dialog.isVisible(), wanted.staysOpen) << i;
            EXPECT_EQ(dialog.lstSites->model()->rowCount(), wanted.staysOpen ? 3 : 0) << i;
            EXPECT_FALSE(wanted.staysOpen && dialog.cmdOK->isEnabled()) << i;
        });
        EXPECT_EQ(boxes.shown.size(), wanted.connects ? 1U : 0U) << i;
        EXPECT_EQ(settings.LastServer, "here");
    }
}

TEST_F(frmServerTest, AnEntryPickedFromTheListIsConnectedAtOnce)
{
    Show([&](frmServer& dialog) {
        auto& box = *dialog.cmbServer;
        QTest::keyClick(&box, Qt::Key_Down);  // opens the list
        ASSERT_TRUE(box.view()->isVisible());
        QTest::keyClick(box.view(), Qt::Key_Down);
        QTest::keyClick(box.view(), Qt::Key_Return);
        EXPECT_EQ(box.currentText(), QStringLiteral("localhost"));
        EXPECT_TRUE(selection.ServerChanged() && dialog.cmdOK->isEnabled());
        EXPECT_EQ(Checked(), "2");  // it is the server of the last time, by another name
        Click(dialog.cmdOK);
    });
    EXPECT_EQ(boxes.shown, std::vector<std::string>());
    EXPECT_EQ(settings.LastServer, "localhost");
    EXPECT_EQ(settings.Servers, (std::vector<std::string>{"localhost", "here", "nowhere"}));
}
