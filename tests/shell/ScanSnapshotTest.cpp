#include "shell/ScanSnapshot.h"

#include "export/frmDbExport.h"
#include "export/frmReport.h"
#include "shell/WindowRig.h"
#include "support/OdbcCalls.h"
#include "support/OdbcRig.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QTimer>

#include <sstream>

namespace {

using Row = std::vector<OdbcValue>;

// From a real cache through the main window into the report and a real database.
class ScanSnapshotTest : public WindowRig {
public:
    void SetUp() override { DisplayFilled(); }

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
    Row First(const std::string& sql) const
    {
        const auto rows = Ask(*::Open(rig.Sqlite()), sql);
        EXPECT_TRUE(rows && !rows->empty()) << sql << Failure(rows);
        return rows && !rows->empty() ? rows->front() : Row();
    }

    OdbcRig rig;
};

// Its totals, those of its entries and those of its first site: count, hits and size.
std::string Totals(const ScanSnapshot& snapshot)
{
    CacheFigures sums;
    snapshot.ForEachEntry([&](const SnapshotEntry& entry) {
        sums.Add(entry.figures);
        return true;
    });
    std::ostringstream text;
    for (const auto& figures : {snapshot.Totals(), sums, snapshot.Sites()[0].figures})
        text << figures.count << ' ' << figures.totalHits << ' ' << figures.uncompressedSize << '|';
    return text.str();
}

}  // namespace

TEST_F(ScanSnapshotTest, AgreesWithWhatTheWindowShows)
{
    const auto snapshot = Snapshot();
    const auto& contents = state->contents;
    EXPECT_EQ(Totals(snapshot), "3 30 2100|3 30 2100|3 30 2100|");
    EXPECT_DOUBLE_EQ(snapshot.Totals().compressedSize, contents.totals.CompressedSize);
}

TEST_F(ScanSnapshotTest, AgreesWithTheTreeAfterAFolderWasDeleted)
{
    Select("1/Root/dir");
    window->RemoveNodeCache();
    ASSERT_FALSE(IndexOf("1/Root/dir").isValid());
    EXPECT_EQ(Totals(Snapshot()), "2 20 1100|2 20 1100|2 20 1100|");
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
        Trigger("mnuFile_Report");
        isTold = Report()->findChild<QLabel*>(QStringLiteral("lblState"))->text().contains(u"being read");
        EXPECT_FALSE(Report()->IsBusy()) << "no report while the scan changes what it reads";
    };
    Trigger("mnuFile_Rescan");
    pump.onRun = {};
    EXPECT_TRUE(isTold);
    EXPECT_TRUE(ReportText().contains(QLatin1String("page.htm")));
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
    const auto row = [](std::int64_t first, std::int64_t second, std::int64_t third) {
        return Row{first, second, third};
    };
    EXPECT_EQ(First(R"(SELECT COUNT(*), SUM("total_hits"), CAST(SUM("uncompressed_size") AS BIGINT) FROM )"
                    R"("quillet_entries" WHERE "run" = 1 AND "site" = 1)"),
              row(3, 30, 2100));
    EXPECT_EQ(First(R"(SELECT "site_rows", "entry_rows", "total_rows" FROM "quillet_runs")"), row(2, 3, 1));
    Trigger("mnuFile_Rescan");
    EXPECT_GT(pump.runs, 0);
}

TEST_F(ScanSnapshotTest, TheWindowClosesWhileAnExportRuns)
{
    {
        const auto holder = ::Open(rig.Sqlite());
        ASSERT_TRUE(holder && holder->Execute("BEGIN EXCLUSIVE"));  // so that the export has to wait
        Export([&](frmDbExport& wizard) {
            auto* const pages = wizard.findChild<QStackedWidget*>(QStringLiteral("pages"));
            EXPECT_EQ(pages->currentWidget()->objectName(), u"pagRun");
            window->close();
        });
        EXPECT_FALSE(window->isVisible());
        window.reset();
    }
    EXPECT_EQ(First("SELECT COUNT(*) FROM sqlite_master"), Row{std::int64_t{0}});
}
