#include "export/frmReport.h"

#include "export/ReportSnapshot.h"

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

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

constexpr const char* kLongWord = "/0123456789012345678901234567890123456789";

class Boxes : public MessageBoxes {
public:
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string&) override
    {
        shown.push_back(text);
        return BoxAnswer::Ok;
    }
    std::vector<std::string> shown;
};

// A scan that breaks off.
class BrokenSnapshot : public ReportSnapshot {
public:
    using ReportSnapshot::ReportSnapshot;
    CacheFigures Totals() const override { throw std::runtime_error("lost <b>"); }
};

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
    frmReportTest()
    {
        entries.push_back(Ratio("/<script>\xFF&amp;", 990, 1'000));
        entries.push_back(Saver("/saves.css", 5'000));
        entries.push_back(Saver(kLongWord, 1));
        ReportHost host{[this]() -> std::unique_ptr<CacheSnapshot> {
                            if (isEndless) return std::make_unique<EndlessSnapshot>(entries);
                            if (isBroken) return std::make_unique<BrokenSnapshot>(entries);
                            if (isScanned) return std::make_unique<ReportSnapshot>(entries);
                            return nullptr;
                        },
                        boxes,
                        {},
                        [this](const QString& name) {
                            proposed = name;
                            return chosen;
                        },
                        [this] { return isScanning; }};
        window = std::make_unique<frmReport>(std::move(host));
        QObject::connect(window.get(), &frmReport::BusyChanged, window.get(),
                         [this](bool isBusy) { told += isBusy ? "busy " : "idle "; });
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
    bool isScanned = true, isEndless = false, isBroken = false, isScanning = false;
    Boxes boxes;
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
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QLatin1String("/saves.css")));
    EXPECT_FALSE(text.contains(QLatin1String(kLongWord))) << "it would force the window wider";
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QLatin1String(kLongWord)));
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->html().contains(QLatin1String("<svg")));
    QTest::keyClick(View(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(frmReportTest, TheTotalsStandWhereReadingBegins)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        window->setLayoutDirection(direction);
        window->Open();
        ASSERT_TRUE(Waits());
        const auto* const document = View()->document();
        auto* const totals = document->rootFrame()->childFrames().value(0);
        ASSERT_NE(totals, nullptr);
        const auto place = document->documentLayout()->frameBoundingRect(totals);
        const bool isMirrored = direction == Qt::RightToLeft;
        EXPECT_LT(isMirrored ? document->size().width() - place.right() : place.left(), 20);
    }
}

TEST_F(frmReportTest, AScanUnderWayIsNotRead)
{
    window->Open();
    ASSERT_TRUE(Waits());
    const auto text = Text();
    isScanning = true;
    window->GenerateReport();
    EXPECT_FALSE(window->IsBusy());
    EXPECT_EQ(Text(), text);
}

TEST_F(frmReportTest, SaysWhenNothingWasScannedAndComesBackWithAScan)
{
    isScanned = false;
    window->Open();
    EXPECT_EQ(Text(), QLatin1String("Nothing was scanned yet."));
    EXPECT_FALSE(window->IsBusy() || Button("cmdSave")->isEnabled() || Button("cmdCopy")->isEnabled());
    isScanned = true;
    QTest::keyClick(View(), Qt::Key_F5);
    ASSERT_TRUE(Waits());
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    EXPECT_TRUE(Text().contains(QLatin1String("WEB1")));
}

TEST_F(frmReportTest, LetsTheScanGoWhenItIsClosedOrDestroyed)
{
    isEndless = true;
    window->Open();
    EXPECT_FALSE(Button("cmdRefresh")->isEnabled());
    window->close();
    EXPECT_TRUE(Waits());
    EXPECT_TRUE(boxes.shown.empty());
    window->Open();
    window->close();
    isEndless = false;
    window->Open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Text().contains(QLatin1String("WEB1")); })) << "opened again";
    isEndless = true;
    window->GenerateReport();
    window.reset();  // hangs when nobody cancels
}

TEST_F(frmReportTest, TellsWhyThereIsNoReport)
{
    isBroken = true;
    window->Open();
    ASSERT_TRUE(Waits());
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"The report cannot be made.\nlost <b>"});
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
    EXPECT_EQ(json[QLatin1String("totals")][QLatin1String("uncompressedSize")].toDouble(), 1'000);
    const auto poor = json[QLatin1String("poorRatio")];
    EXPECT_EQ(poor[QLatin1String("all")][QLatin1String("count")].toInt(), 1);
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
                             folder.filePath(QStringLiteral("none/r.pdf")),
                             QStringLiteral("/dev/full/x.csv"),
                             folder.filePath(QStringLiteral("r.doc"))};
    std::size_t boxesShown = 0;
    for (const auto& name : names) {
        chosen = name;
        Button("cmdSave")->click();
        if (!name.isEmpty()) ++boxesShown;
        ASSERT_EQ(boxes.shown.size(), boxesShown) << name.toStdString();
    }
    EXPECT_EQ(boxes.shown[0].find("The report cannot be saved as " + names[1].toStdString() + '\n'), 0U);
    EXPECT_NE(boxes.shown[1].find("No such file"), std::string::npos);
    EXPECT_EQ(boxes.shown.back(), "The name of a report ends in .html, .pdf, .csv or .json.");
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

}  // namespace
