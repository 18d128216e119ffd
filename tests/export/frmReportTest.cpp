#include "export/frmReport.h"

#include "export/ReportDocument.h"
#include "export/ReportPages.h"
#include "export/ReportSnapshot.h"
#include "support/KeptBoxes.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace {

const std::string kTitle = "Zentrel Cache Report: ";
constexpr const char* kLongWord = "/0123456789012345678901234567890123456789";

// A scan that is read for as long as nobody cancels.
class EndlessSnapshot : public ReportSnapshot {
public:
    using ReportSnapshot::ReportSnapshot;
    void ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const override
    {
        const auto entry = Saver("/again", 1);
        while (take(entry)) {
        }
    }
};

class frmReportTest : public testing::Test {
public:
    using Scan = std::function<std::unique_ptr<CacheSnapshot>()>;

    frmReportTest()
    {
        entries.push_back(Ratio("/<script>\xFF&amp;", 990, 1'000));
        entries.push_back(Saver("/saves.css", 5'000));
        entries.push_back(Saver(kLongWord, 1));
        ReportHost host{[this] { return scan(); },
                        boxes,
                        {},
                        [this](const QString& name) {
                            proposed = name;
                            return chosen;
                        },
                        {}};
        window = std::make_unique<frmReport>(std::move(host));
        QObject::connect(window.get(), &frmReport::BusyChanged, window.get(),
                         [this](bool isBusy) { told += isBusy ? "busy " : "idle "; });
    }
    template <class Snapshot>
    Scan Of()
    {
        return [this] { return std::make_unique<Snapshot>(entries); };
    }
    QTextBrowser* View() const { return window->findChild<QTextBrowser*>(QStringLiteral("Text1")); }
    QString Text() const { return View()->toPlainText(); }
    QPushButton* Button(const char* name) const
    {
        return window->findChild<QPushButton*>(QLatin1String(name));
    }
    bool Waits() const
    {
        return QTest::qWaitFor([this] { return !window->IsBusy(); });
    }
    QByteArray SavedAs(const QString& name)
    {
        chosen = folder.filePath(name);
        QTest::keyClick(View(), Qt::Key_S, Qt::ControlModifier);
        QFile file(chosen);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    std::vector<SnapshotEntry> entries;
    Scan scan = Of<ReportSnapshot>();
    KeptBoxes boxes;
    QTemporaryDir folder;
    QString chosen, proposed;
    std::string told;
    std::unique_ptr<frmReport> window;
};

TEST_F(frmReportTest, ShowsTheFiguresOfTheLastScan)
{
    window->Open();
    EXPECT_TRUE(window->IsBusy());
    ASSERT_TRUE(Waits());
    EXPECT_EQ(told, "busy idle ");
    const auto text = Text();
    for (const auto* part : {"WEB1", "2023-03-15 18:00", "Default Web Site", "99.00%", "4.88 KiB",
                             "/saves.css", "Shown: 2 of 2.", "There are none."})
        EXPECT_TRUE(text.contains(QString::fromUtf8(part))) << part;
    EXPECT_TRUE(text.contains(QStringLiteral("/<script>\uFFFD&amp;")));
    EXPECT_TRUE(text.contains(QChar::ObjectReplacementCharacter)) << "the chart";

    Button("cmdCopy")->click();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QLatin1String("\n/saves.css\t\tDefault")));
    EXPECT_FALSE(text.contains(QLatin1String(kLongWord))) << "it would force the window wider";
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QLatin1String(kLongWord)));
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->html().contains(QLatin1String("<svg")));
    QTest::keyClick(View(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(frmReportTest, TablesReadFromWhereTheWindowDoes)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        window->setLayoutDirection(direction);
        window->Open();
        ASSERT_TRUE(Waits());
        const auto* const document = View()->document();
        const auto* const totals = qobject_cast<QTextTable*>(document->rootFrame()->childFrames().value(0));
        ASSERT_NE(totals, nullptr);
        const bool isMirrored = direction == Qt::RightToLeft;
        const auto name = totals->cellAt(0, isMirrored ? 1 : 0).firstCursorPosition().block();
        const auto place = document->documentLayout()->blockBoundingRect(name);
        EXPECT_TRUE(name.text().contains(QLatin1String("Cached URLs"))) << isMirrored;
        EXPECT_LT(isMirrored ? document->size().width() - place.right() : place.left(), 20);
        View()->selectAll();
        View()->copy();
        const auto copied = QGuiApplication::clipboard()->text();
        EXPECT_TRUE(copied.contains(u'\n' + QLatin1String(kLongWord) + u'\n')) << copied.toStdString();
    }
}

TEST_F(frmReportTest, LetsTheScanGoWhenItIsClosedOrDestroyed)
{
    scan = Of<EndlessSnapshot>();
    window->Open();
    EXPECT_FALSE(Button("cmdRefresh")->isEnabled());
    window->close();
    EXPECT_TRUE(Waits());
    EXPECT_TRUE(boxes.shown.empty());
    window->Open();
    window->close();
    scan = Of<ReportSnapshot>();
    window->Open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text().contains(QLatin1String("WEB1")); })) << "opened again";
    scan = Of<EndlessSnapshot>();
    window->GenerateReport();
    window.reset();  // hangs when nobody cancels
}

TEST_F(frmReportTest, TellsWhyThereIsNoReport)
{
    scan = [this] {
        auto broken = std::make_unique<ReportSnapshot>(entries);
        broken->onEntry = [](std::int64_t) { throw std::runtime_error("lost <b>"); };
        return broken;
    };
    window->Open();
    ASSERT_TRUE(Waits());
    EXPECT_EQ(boxes.shown, std::vector{kTitle + "The report cannot be made.\nlost <b>"});
    EXPECT_EQ(Text(), QLatin1String("The report cannot be made.\nlost <b>"));
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
}

TEST_F(frmReportTest, SavesAllFourFormats)
{
    window->Open();
    ASSERT_TRUE(Waits());
    EXPECT_TRUE(SavedAs(QStringLiteral("a.HTM")).startsWith("<!DOCTYPE html>"));
    EXPECT_EQ(proposed, QLatin1String("report-WEB1-2023-03-15-18-00-00.html"));
    EXPECT_TRUE(SavedAs(QStringLiteral("b.csv")).contains("/saves.css,,Default Web Site,5000,100,"));
    const auto pdf = SavedAs(QStringLiteral("c.pdf"));
    EXPECT_TRUE(pdf.startsWith("%PDF-") && pdf.contains("/Subtype /Image") && pdf.size() > 5'000);
    const auto json = QJsonDocument::fromJson(SavedAs(QStringLiteral("d.json"))).object();
    EXPECT_EQ(json[QLatin1String("scannedAt")].toString(), QLatin1String("2023-03-15T18:00:00"));
    const auto poor = json[QLatin1String("poorRatio")];
    EXPECT_EQ(poor[QLatin1String("shown")][0][QLatin1String("ratio")].toDouble(), 0.99);
    EXPECT_EQ(poor[QLatin1String("shown")][0][QLatin1String("path")].toString(),
              QStringLiteral("/<script>\uFFFD&amp;"));
    EXPECT_EQ(json[QLatin1String("levels")].toArray().size(), 11);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 4);
}

TEST_F(frmReportTest, TellsWhatCannotBeSaved)
{
    window->Open();
    ASSERT_TRUE(Waits());
    const QString names[] = {{},
                             folder.filePath(QStringLiteral("none/r.html")),
                             QStringLiteral("/dev/full/x.csv"),
                             folder.filePath(QStringLiteral("r.doc"))};
    std::size_t boxesShown = 0;
    for (const auto& name : names) {
        chosen = name;
        Button("cmdSave")->click();
        if (!name.isEmpty()) ++boxesShown;
        ASSERT_EQ(boxes.shown.size(), boxesShown) << name.toStdString();
    }
    EXPECT_EQ(boxes.shown[0].find(kTitle + "The report cannot be saved as " + names[1].toStdString() + '\n'),
              0U);
    EXPECT_EQ(boxes.shown.back(), kTitle + "The name of a report ends in .html, .pdf, .csv or .json.");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

// Of a document that is longer than some pages.
TEST(ReportPages, KeepsRowsWhole)
{
    constexpr double kHeight = 460;
    const ReportSnapshot snapshot(std::vector<SnapshotEntry>(40, Saver(kLongWord, 1)));
    ReportDocument document;
    document.Show(*GenerateReport(snapshot), {}, {});
    document.setTextWidth(500);
    const auto pages = PagesOf(document, kHeight);
    const auto place = [&](const QTextBlock& block) {
        return document.documentLayout()->blockBoundingRect(block);
    };
    const auto pageOf = [&](const QTextBlock& block) {
        return std::find_if(pages.begin(), pages.end(), [text = place(block)](const ReportPage& page) {
            return page.top <= text.top() && text.bottom() <= page.bottom;
        });
    };
    EXPECT_GT(pages.size(), 2U);
    for (const auto& page : pages) EXPECT_LE(page.Height(), kHeight);
    QTextBlock title;
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        if (block.length() == 1) continue;
        EXPECT_NE(pageOf(block), pages.end()) << block.text().toStdString();
        EXPECT_TRUE(!title.isValid() || pageOf(title) == pageOf(block)) << title.text().toStdString();
        title = block.blockFormat().headingLevel() > 0 ? block : QTextBlock();
    }
}

}  // namespace
