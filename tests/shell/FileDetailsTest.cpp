// The file details and their analysis in the main window, while everything else goes on around them.
#include "ops/AnalysisRig.h"

#include <QTimer>

namespace {

class FileDetailsTest : public WindowRig {
public:
    FileDetailsTest() { setenv("TMPDIR", temp.Path().c_str(), 1); }
    ~FileDetailsTest() override { unsetenv("TMPDIR"); }

    void SetUp() override
    {
        FillStore();
        for (const std::uint32_t id : {1, 2}) store.PutCacheFile(id, Compressed(PageText(2'000'000)));
        Open();
        window->Display();
        pump.isLive = true;
    }

    // Analyses the file, does `meanwhile` in the midst of it, and closes the dialog when there are results.
    // Answers whether there were.
    bool Analyse(const char* key, const std::function<void()>& meanwhile)
    {
        Select(key);
        pump.runs = 0;
        pump.onRun = [&, isDone = false](int run) mutable {
            if (run >= 300 && !std::exchange(isDone, true)) meanwhile();
        };
        bool hasResults = false;
        QElapsedTimer time;
        time.start();
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto* const dialog = window->findChild<frmFileInfo*>();
            if (dialog == nullptr) return;
            hasResults = dialog->pltLevels->isVisible();
            if (hasResults || time.elapsed() > 20'000) dialog->reject();
        });
        watch.start(10);
        window->ShowFileDetails(true);
        pump.onRun = nullptr;
        EXPECT_EQ(window->findChild<frmFileInfo*>(), nullptr) << "it is shown no longer";
        EXPECT_TRUE(std::filesystem::is_empty(temp.Path()));
        EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
        return hasResults;
    }

    TempFolder temp = std::move(*TempFolder::Make("quillet-temp"));
};

TEST_F(FileDetailsTest, TheAnalysisOutlivesWhatHappensAroundIt)
{
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"a second analysis",
         [&] {
             auto* const dialog = window->findChild<frmFileInfo*>();
             const auto step = dialog->lblStep->text().toStdString();
             const int runs = pump.runs;
             window->ShowFileDetails(true);
             dialog->cmdCompr_Click();
             EXPECT_EQ(dialog->lblStep->text().toStdString(), step);
             EXPECT_EQ(pump.runs, runs);
         }},
        {"a rescan", [&] { window->Rescan(); }},
        {"another connection", [&] { window->ConnectToServer(); }},
        {"the node is deleted",
         [&] {
             window->RemoveNodeCache();
             EXPECT_FALSE(IndexOf("1/Root/dir/page.htm").isValid());
         }},
    };
    for (const auto& [what, meanwhile] : cases) {
        SCOPED_TRACE(what);
        EXPECT_TRUE(Analyse("1/Root/dir/page.htm", meanwhile));
        EXPECT_EQ(boxes.shown, std::vector<std::string>());
    }
    // The cached file goes with everything else; what is open can still be read.
    EXPECT_TRUE(Analyse("1/Root/v/x.css", [&] { window->CleanCache(); }));
    EXPECT_EQ(boxes.shown.size(), 1U) << "the question alone";
    boxes.onShow = [this] { window->findChild<frmFileInfo*>()->reject(); };
    EXPECT_FALSE(Analyse("1/Root/v/x.css", [] { FAIL() << "the file is gone"; }));
    ASSERT_EQ(boxes.shown.size(), 2U);
    EXPECT_NE(boxes.shown[1].find("Cannot open "), std::string::npos);
}

TEST_F(FileDetailsTest, TheWindowGoesDownWithoutWaitingForTheAnalysis)
{
    int runs = 0;
    EXPECT_FALSE(Analyse("1/Root/v/x.css", [&] {
        window->close();
        EXPECT_FALSE(window->IsUnloaded());
        runs = pump.runs;
    }));
    EXPECT_EQ(pump.runs, runs);
    EXPECT_TRUE(window->IsUnloaded() && boxes.shown.empty());
}

}  // namespace
