#include "shell/ScanSnapshot.h"

#include "export/frmDbExport.h"
#include "export/frmReport.h"
#include "shell/WindowRig.h"
#include "support/OdbcRig.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QTimer>

namespace {

using Row = std::vector<OdbcValue>;

// From a real cache through the main window into the report and a real database.
class ScanSnapshotTest : public WindowRig {
public:
    void SetUp() override
    {
        FillStore();
        Open(store.Folder());
        window->Display();
        boxes.shown.clear();
    }

    ScanSnapshot Snapshot() const { return {state->contents, "here", {45'000}, {}}; }

    frmReport* Report() const
    {
        for (auto* const top : QApplication::topLevelWidgets())
            if (auto* const report = qobject_cast<frmReport*>(top)) return report;
        return nullptr;
    }
    bool IsReportMade() const
    {
        return QTest::qWaitFor([this] { return Report() != nullptr && !Report()->IsBusy(); });
    }
    QString ReportText() const { return Report()->findChild<QTextBrowser*>()->toPlainText(); }

    // Opens the wizard and walks to the run, then does that.
    void Export(const std::function<void(frmDbExport&)>& whileItRuns)
    {
        QTimer::singleShot(0, window.get(), [&] {
            auto* const wizard = window->findChild<frmDbExport*>();
            ASSERT_NE(wizard, nullptr);
            wizard->findChild<QComboBox*>(QStringLiteral("Combo1"))->setCurrentIndex(0);
            for (int i = 0; i < 4; ++i) wizard->cmdNext->click();
            whileItRuns(*wizard);
        });
        Trigger("mnuFile_Export");
    }
    Row Ask(const std::string& sql) const
    {
        const auto database = OpenOdbc({rig.Sqlite(), "", ""}, std::chrono::seconds(10));
        EXPECT_TRUE(database);
        const auto statement = (*database)->Prepare(sql);
        Row row;
        EXPECT_TRUE(statement && (*statement)->Execute({}) && *(*statement)->Fetch(row)) << sql;
        return row;
    }

    OdbcRig rig;
};

CacheFigures Summed(const ScanSnapshot& snapshot)
{
    CacheFigures sums;
    snapshot.ForEachEntry([&](const SnapshotEntry& entry) {
        sums.Add(entry.figures);
        return true;
    });
    return sums;
}

}  // namespace

TEST_F(ScanSnapshotTest, AgreesWithWhatTheWindowShows)
{
    const auto snapshot = Snapshot();
    const auto& contents = state->contents;
    EXPECT_EQ(snapshot.Totals().count, contents.totals.Count);
    EXPECT_EQ(snapshot.Totals().totalHits, contents.totals.TotalHits);
    EXPECT_GT(contents.totals.TotalHits, 0);
    EXPECT_DOUBLE_EQ(snapshot.Totals().uncompressedSize, contents.totals.UncompressedSize);
    EXPECT_DOUBLE_EQ(snapshot.Totals().compressedSize, contents.totals.CompressedSize);
    EXPECT_EQ(Summed(snapshot).count, contents.totals.Count);
    const auto types = snapshot.Types();
    ASSERT_EQ(types.size(), contents.types.size());
    for (const auto& shown : contents.types) {
        const auto found = std::find_if(types.begin(), types.end(), [&](const SnapshotType& type) {
            return type.type == shown.Extension;
        });
        ASSERT_NE(found, types.end()) << shown.Extension;
        EXPECT_EQ(found->figures.count, shown.Count) << shown.Extension;
        EXPECT_EQ(found->figures.totalHits, shown.TotalHits) << shown.Extension;
        EXPECT_DOUBLE_EQ(found->figures.uncompressedSize, shown.UncompressedSize) << shown.Extension;
    }
    const auto sites = snapshot.Sites();
    ASSERT_EQ(sites.size(), 2U);
    EXPECT_EQ(sites[0].number, 1);
    EXPECT_EQ(sites[0].figures.count, contents.totals.Count);
    EXPECT_EQ(sites[1].figures.count, 0);
    EXPECT_NE(sites[1].name.find("Empty"), std::string::npos);
}

TEST_F(ScanSnapshotTest, AgreesWithTheTreeAfterAFolderWasDeleted)
{
    const auto before = Snapshot().Totals();
    const auto& model = static_cast<const CacheTreeModel&>(*window->trvFiles->model());
    window->trvFiles->setCurrentIndex(model.IndexOf(state->contents.tree.Find("1/Root/dir")));
    boxes.answer = BoxAnswer::Yes;
    window->trvFiles->setFocus();
    QTest::keyClick(window->trvFiles, Qt::Key_Delete);
    ASSERT_EQ(state->contents.tree.Find("1/Root/dir"), kNoNode);
    const auto after = Snapshot();
    EXPECT_EQ(after.Totals().count, before.count - 1);
    EXPECT_EQ(Summed(after).count, before.count - 1);
    EXPECT_DOUBLE_EQ(after.Totals().uncompressedSize, before.uncompressedSize - 1000);
    EXPECT_DOUBLE_EQ(after.Sites()[0].figures.uncompressedSize, before.uncompressedSize - 1000);
}

TEST_F(ScanSnapshotTest, TheReportAndAScanKeepOutOfEachOthersWay)
{
    Trigger("mnuFile_Report");
    ASSERT_NE(Report(), nullptr);
    ASSERT_TRUE(Report()->IsBusy());
    pump.runs = 0;
    Trigger("mnuFile_Rescan");
    EXPECT_EQ(pump.runs, 0) << "no scan while the report reads the last one";
    ASSERT_TRUE(IsReportMade());
    EXPECT_TRUE(ReportText().contains(QLatin1String("page.htm"))) << ReportText().toStdString();

    bool isTold = false;
    pump.runs = 0;
    pump.onRun = [&](int run) {
        if (run > 1) return;  // the counters follow the scan
        Report()->GenerateReport();
        isTold = Report()->findChild<QLabel*>(QStringLiteral("lblState"))->text().contains(u"being read");
        EXPECT_FALSE(Report()->IsBusy()) << "no report while the scan changes what it reads";
    };
    Trigger("mnuFile_Rescan");
    pump.onRun = {};
    EXPECT_TRUE(isTold);
    EXPECT_TRUE(ReportText().contains(QLatin1String("page.htm")));
    Report()->GenerateReport();
    EXPECT_TRUE(IsReportMade());
    window->close();
    EXPECT_FALSE(Report()->isVisible());
}

TEST_F(ScanSnapshotTest, TheWizardPutsTheScanIntoADatabase)
{
    pump.runs = 0;
    Export([&](frmDbExport& wizard) {
        Trigger("mnuFile_Rescan");
        auto* const pages = wizard.findChild<QStackedWidget*>(QStringLiteral("pages"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return pages->currentWidget()->objectName() == u"pagSummary"; }));
        wizard.cmdNext->click();
    });
    EXPECT_EQ(pump.runs, 0) << "no scan while the wizard is open";
    EXPECT_TRUE(boxes.shown.empty());
    const auto& totals = state->contents.totals;
    EXPECT_EQ(Ask(R"(SELECT COUNT(*), SUM("total_hits"), CAST(SUM("uncompressed_size") AS BIGINT) FROM )"
                  R"("quillet_entries" WHERE "run" = 1 AND "site" = 1)"),
              (Row{std::int64_t{totals.Count}, std::int64_t{totals.TotalHits},
                   static_cast<std::int64_t>(totals.UncompressedSize)}));
    EXPECT_EQ(Ask(R"(SELECT "site_rows", "entry_rows", "total_rows" FROM "quillet_runs")"),
              (Row{std::int64_t{2}, std::int64_t{totals.Count}, std::int64_t{1}}));
    Trigger("mnuFile_Rescan");
    EXPECT_GT(pump.runs, 0);
}

TEST_F(ScanSnapshotTest, TheWindowClosesWhileAnExportRuns)
{
    {
        const auto holder = OpenOdbc({rig.Sqlite(), "", ""}, std::chrono::seconds(10));
        ASSERT_TRUE(holder && (*holder)->Execute("BEGIN EXCLUSIVE"));  // so that the export has to wait
        Export([&](frmDbExport& wizard) {
            auto* const pages = wizard.findChild<QStackedWidget*>(QStringLiteral("pages"));
            EXPECT_EQ(pages->currentWidget()->objectName(), u"pagRun");
            window->close();
        });
        EXPECT_FALSE(window->isVisible());
        window.reset();
    }
    EXPECT_EQ(Ask("SELECT COUNT(*) FROM sqlite_master"), Row{std::int64_t{0}});
}
