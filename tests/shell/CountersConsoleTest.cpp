#include "stats/CountersConsole.h"

#include "shell/WindowRig.h"
#include "support/ScriptedSource.h"
#include "zentrel/ServiceRig.h"

#include <QClipboard>
#include <QDialog>
#include <QMouseEvent>
#include <QTimer>

#include <fstream>
#include <memory>
#include <sstream>

namespace {

// The console over a real service whose site has one page.
class CountersConsoleTest : public ServiceRig {
protected:
    CountersConsoleTest()
    {
        ServiceRig::Start();
        WriteFile("page.htm", std::string(5000, 'x'));
        Start();
        Show();
    }

    void Start()
    {
        if (!service) Reopen(zentrel::Service::Role::Writer);
        *transport = zentrel::EmbeddedTransport(service, "here");
    }
    void Stop()
    {
        *transport = zentrel::EmbeddedTransport(Data() / "nothing", "here");
        source.Leave();
        responder.reset();
        service.reset();
    }
    void Show()
    {
        console = std::make_unique<CountersConsole>(
            CountersConsoleHost{library, MakeCounterList(), boxes, FormatLocale(), askFileName, [this] {
                                    return SampleTime{now, 1'700'000'000'000 + now};
                                }});
        console->show();
        console->SetServer(CounterServer{"<b>here", true});
    }
    void Visit() { EXPECT_EQ(Get("/page.htm").status, 200); }
    void Sample(std::int64_t after = 1000)
    {
        now += after;
        console->Sample();
    }

    template <class Widget>
    Widget* Find(const QString& name) const
    {
        auto* const found = console->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    CounterChart* Chart(int counter) const
    {
        return Find<CounterChart>(QStringLiteral("CounterChart(%1)").arg(counter));
    }
    void Click(const char* name) { Find<QPushButton>(QLatin1String(name))->click(); }
    QString Message() const { return Find<QLabel>("lblMessage")->text(); }

    static constexpr int kTotal = 15, kHits = 17, kShare = 18;  // rows of the list

    std::shared_ptr<zentrel::EmbeddedTransport> transport =
        std::make_shared<zentrel::EmbeddedTransport>(std::filesystem::path(), "here");
    ZentrelCounters source{transport};
    PerformanceData library{source};
    ScriptedBoxes boxes;
    std::int64_t now = 0;
    QString fileName, proposed;
    std::function<QString(const QString&)> askFileName = [this](const QString& name) {
        proposed = name;
        return fileName;
    };
    std::unique_ptr<CountersConsole> console;
};

}  // namespace

TEST_F(CountersConsoleTest, ChartsFollowRealRequests)
{
    EXPECT_EQ(console->windowTitle(), "Zentrel Performance Counters - <b>here");
    Sample();
    EXPECT_EQ(console->findChildren<CounterChart*>().size(), 19);
    const auto before = Chart(kHits)->grab().toImage();
    for (int i = 0; i < 4; ++i) Visit();
    Sample();
    EXPECT_EQ(Chart(kTotal)->ValueText(), "4");
    EXPECT_EQ(Chart(kHits)->accessibleName(), "Cache Hits: 3");
    EXPECT_EQ(Chart(kShare)->ValueText(), "75.00%");
    EXPECT_NE(Chart(kHits)->grab().toImage(), before);
    QTRY_VERIFY_WITH_TIMEOUT(console->History().Samples().size() >= 3, 3000);  // by itself, every second
}

TEST_F(CountersConsoleTest, ASampleIsReadByKeysAndPointer)
{
    for (int i = 0; i < 4; ++i, Visit()) Sample(60'000);
    auto* const chart = Chart(kTotal);
    console->activateWindow();
    chart->setFocus();
    EXPECT_EQ(chart->CursorText(), "");
    const std::pair<Qt::Key, const char*> reads[] = {
        {Qt::Key_Left, "3"}, {Qt::Key_Home, "0"}, {Qt::Key_Left, "0"}, {Qt::Key_Right, "1"}};
    for (const auto& [key, value] : reads) {
        QTest::keyClick(chart, key);
        EXPECT_EQ(chart->CursorText().section("  ", 1).toStdString(), value);
    }
    EXPECT_TRUE(chart->accessibleName().endsWith("  1")) << "who listens hears what is read";
    Sample(60'000);
    EXPECT_TRUE(chart->CursorText().endsWith("  1")) << "it stays with its sample";
    const auto point = [&](const QPointF& at) {
        QMouseEvent move(QEvent::MouseMove, at, chart->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(chart, &move);
    };
    point({chart->width() - 12.0, chart->height() / 2.0});
    EXPECT_TRUE(chart->CursorText().endsWith("  4"));
}

TEST_F(CountersConsoleTest, PausesAndClosesAndCostsNothingThen)
{
    Sample();
    Click("cmdPause");
    Sample();
    EXPECT_TRUE(console->History().Samples().size() == 1 && !console->IsReading());
    Click("cmdPause");
    Sample();
    EXPECT_TRUE(console->History().Samples().back().isAfterBreak && console->IsReading());
    console->hide();
    Sample();
    EXPECT_EQ(console->History().Samples().size(), 3U) << "hidden, it goes on";
    console->show();
    QTest::keyClick(Chart(0), Qt::Key_Escape);
    EXPECT_FALSE(console->isVisible() || console->IsReading());
    Sample();
    EXPECT_EQ(console->History().Samples().size(), 3U);
    console->Open();
    EXPECT_TRUE(console->isVisible() && console->IsReading());
}

TEST_F(CountersConsoleTest, CopiesAndSavesWhatItShows)
{
    EXPECT_FALSE(Find<QPushButton>("cmdSaveCsv")->isEnabled()) << "there is nothing yet";
    for (int i = 0; i < 3; ++i, Visit()) Sample();
    Click("cmdCopyValues");
    const auto lines = QGuiApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines.size(), 20);
    EXPECT_EQ(lines[kShare], "% Cache Hits\t50.00%");

    fileName = QString::fromStdString((Root() / "counters.csv").string());
    Click("cmdSaveCsv");
    EXPECT_TRUE(proposed.startsWith("counters--b-here-2023-11-1") && proposed.endsWith(".csv"));
    std::stringstream saved;
    saved << std::ifstream(Root() / "counters.csv").rdbuf();
    const auto samples = static_cast<qsizetype>(console->History().Samples().size());
    EXPECT_EQ(QString::fromStdString(saved.str()).count(u'\n'), samples + 1);
    EXPECT_TRUE(boxes.shown.empty());

    fileName = QString::fromStdString((Root() / "nowhere" / "x.csv").string());
    Click("cmdSaveCsv");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_NE(boxes.shown[0].find("nowhere/x.csv\nNo such file"), std::string::npos) << boxes.shown[0];
}

TEST_F(CountersConsoleTest, ClosedItTakesItsQuestionAlong)
{
    askFileName = nullptr;  // it asks itself
    Show();
    console->Sample();
    QTimer::singleShot(0, console.get(), [this] {
        Find<QDialog>("dlgSaveCsv");
        console->close();
    });
    Click("cmdSaveCsv");
    EXPECT_TRUE(console->isHidden() && boxes.shown.empty());
}

TEST_F(CountersConsoleTest, AServerThatGoesLeavesAGapAndComesBack)
{
    Sample();
    Stop();
    Sample();
    EXPECT_TRUE(Message().startsWith("Cannot collect performance data\nError 0x"));
    EXPECT_EQ(Chart(kTotal)->ValueText(), "---");
    Start();
    Sample();
    EXPECT_EQ(Message(), "");
    EXPECT_EQ(Chart(kTotal)->ValueText(), "0");
    console->SetServer({});
    EXPECT_FALSE(console->IsReading());
    console->SetServer(CounterServer{"<b>here", true});
    EXPECT_EQ(console->History().Samples().size(), 3U) << "the same server goes on";
}

TEST(CountersConsoleMessages, MayDoAnythingInAReading)
{
    ScriptedSource source;
    for (const auto* const server : {"web01", "web02"})
        source.machines[server] = {{"Zentrel", "_Total", "Cache Hits", PdhType::RawCount, 5, "text"}};
    PerformanceData library(source);
    ScriptedBoxes boxes;
    auto console = std::make_unique<CountersConsole>(
        CountersConsoleHost{library, MakeCounterList(), boxes, FormatLocale()});
    console->show();
    const auto during = [&](const std::function<void()>& messages) {
        console->SetServer(CounterServer{"web01", false});
        bool isDue = true;
        source.onRead = [&] {
            if (std::exchange(isDue, false)) messages();
        };
        console->Sample();
        source.onRead = [] {};
        return console ? console->History().Samples().size() : 0;
    };
    EXPECT_EQ(during([&] { console->Sample(); }), 1U) << "readings do not pile up";
    EXPECT_EQ(source.calls, "read(web01) read(web01) ") << "adding and collecting";
    EXPECT_EQ(during([&] { console->SetPaused(true); }), 1U);
    console->SetPaused(false);
    EXPECT_EQ(during([&] { console->close(); }), 1U);
    EXPECT_FALSE(console->IsReading());
    console->Open();
    EXPECT_EQ(during([&] { console->close(), console->Open(); }), 1U) << "of the query before";
    EXPECT_TRUE(console->IsReading());
    EXPECT_EQ(during([&] { console->SetServer(CounterServer{"web02", false}); }), 0U) << "of another server";
    EXPECT_EQ(during([&] { console.reset(); }), 0U);
    EXPECT_EQ(console, nullptr);
}
