#include "ops/frmFileInfo.h"

#include "AnalysisRig.h"

#include <QTimer>

namespace {

class frmFileInfoTest : public AnalysisRig {
public:
    frmFileInfoTest()
    {
        pump.isLive = true;
        Renew();
    }

    void Renew() { dialog = new frmFileInfo(host, {}); }
    ~frmFileInfoTest() override { delete dialog; }

    // Shows the dialog and runs the script once it can be used; it is closed if it is still there then.
    void Show(const std::function<void()>& script, bool analyse = false, const FileDetails& file = Details())
    {
        boxes.shown.clear();
        QTimer::singleShot(0, dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            script();
            if (dialog) dialog->reject();
        });
        dialog->ShowInfo(nullptr, file, analyse);
        EXPECT_EQ(TempFilesLeft(), 0);
    }

    QTreeWidgetItem* Row(int level) const { return dialog->lstLevels->topLevelItem(level - 1); }
    std::string Column(int column) const
    {
        std::string text;
        for (int level = 1; level <= 9; ++level) text += Row(level)->text(column).toStdString() + " ";
        return text;
    }
    std::string Checked() const
    {
        std::string text;
        for (int level = 1; level <= 9; ++level)
            if (Row(level)->checkState(0) == Qt::Checked) text += std::to_string(level);
        return text;
    }
    std::string Value(int index) const
    {
        return dialog->findChild<QLabel*>(QStringLiteral("lblValue(%1)").arg(index))->text().toStdString();
    }
    QGroupBox* Results() const { return dialog->findChild<QGroupBox*>(QStringLiteral("fraCompr")); }
    static bool Contains(const QWidget* outer, const QWidget* inner)
    {
        return outer->rect().contains(QRect(inner->mapTo(outer, QPoint()), inner->size()));
    }
    static void Click(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }

    QPointer<frmFileInfo> dialog;
};

TEST_F(frmFileInfoTest, ShowsTheDetails)
{
    dialog->ShowInfo(nullptr, {}, true);  // no file: comes back at once
    auto file = Details();
    file.PhysycalPath = "D:\\" + std::string(900, 'x');
    file.FileName = "<b>a</b>[*]";
    Show(
        [&] {
            EXPECT_EQ(dialog->windowTitle().toStdString(), "<b>a</b>[*][*]");
            EXPECT_EQ(dialog->txtFilePath->text().toStdString(), file.FilePath);
            EXPECT_EQ(dialog->txtLocation->text().toStdString(), file.PhysycalPath);
            EXPECT_TRUE(dialog->txtLocation->isReadOnly());
            const char* const values[] = {"6", "1.50 KiB", "1 MiB", "25.00%", "12", "7"};
            for (int i = 0; i < 6; ++i) EXPECT_EQ(Value(i + 1), values[i]);
            dialog->ClearFileInfo();
            EXPECT_TRUE(dialog->txtFilePath->text().isEmpty() && Value(1).empty() && Value(6).empty());
        },
        false, file);
}

TEST_F(frmFileInfoTest, AnalysesOnceAndGrowsToShowIt)
{
    PutCacheFile(Compressed(PageText(2'000'000)));
    std::vector<std::string> steps;
    pump.onRun = [&](int) {
        if (!dialog->prgAnalysis->isVisible()) return;
        const auto step = dialog->lblStep->text().toStdString() + " " +
                          std::to_string(dialog->prgAnalysis->value()) + "/" +
                          std::to_string(dialog->prgAnalysis->maximum());
        if (steps.empty() || steps.back() != step) steps.push_back(step);
        dialog->cmdCompr_Click();  // no second one inside the first
        EXPECT_FALSE(dialog->cmdCompr->isEnabled());
    };
    Show([&] {
        QTest::keyClick(dialog, Qt::Key_A, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Results()->isVisible() && !dialog->lblStep->isVisible(); }));
        EXPECT_TRUE(Contains(dialog, Results()) && Contains(dialog, dialog->pltLevels));
        EXPECT_FALSE(dialog->cmdCompr->isEnabled());
        EXPECT_FALSE(dialog->prgAnalysis->isVisible() || dialog->lblAnalysis->isVisible());
        EXPECT_EQ((Column(1) + Column(2)).find('?'), std::string::npos);
        EXPECT_EQ(Checked(), "6");
        const auto told = dialog->pltLevels->accessibleDescription();
        EXPECT_TRUE(told.contains(QStringLiteral("Level 6, in use: size %1").arg(Row(6)->text(1))));
        EXPECT_EQ(told.count(u'\n'), 8);
        for (QWidget* const next : std::initializer_list<QWidget*>{dialog->lstLevels, dialog->txtFilePath,
                                                                   dialog->txtLocation, dialog->cmdClose}) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(dialog->focusWidget(), next);
        }
    });
    std::vector<std::string> expected{"Step 1 of 10 0/10"};
    for (int step = 2; step <= 10; ++step)
        expected.push_back("Step " + std::to_string(step) + " of 10 " + std::to_string(step) + "/10");
    EXPECT_EQ(steps, expected);
    EXPECT_TRUE(boxes.shown.empty());
    // The next showing begins anew.
    Show([&] {
        EXPECT_TRUE(dialog->cmdCompr->isEnabled() && !Results()->isVisible() && Row(1)->text(1) == u"???");
    });
}

TEST_F(frmFileInfoTest, AnalysesWhenShownIfAsked)
{
    PutCacheFile(Compressed(PageText(1000)));
    Show([&] { EXPECT_TRUE(QTest::qWaitFor([&] { return Results()->isVisible(); })); }, true);
    Show([&] {
        QTest::qWait(300);
        EXPECT_FALSE(Results()->isVisible());
    });
}

// However it goes, the analysis ends soon, without a message and without a file.
TEST_F(frmFileInfoTest, MayBeClosedWhileItAnalyses)
{
    PutCacheFile(Compressed(PageText(30'000'000)));
    auto owner = std::make_unique<QWidget>();
    owner->show();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Close", [&] { Click(dialog->cmdClose); }},
        {"Escape", [&] { QTest::keyClick(dialog, Qt::Key_Escape); }},
        {"the window's own button", [&] { dialog->close(); }},
        {"hidden", [&] { dialog->hide(); }},
        {"its owner goes", [&] { owner.reset(); }},
        {"deleted", [&] { delete dialog; }},
    };
    for (const auto& [way, close] : ways) {
        SCOPED_TRACE(way);
        for (const int run : {2, 40, 4000}) {
            if (!dialog) Renew();
            if (!owner) owner = std::make_unique<QWidget>();
            pump.runs = 0;
            std::chrono::steady_clock::time_point closed;
            pump.onRun = [&](int at) {
                if (at != run) return;
                EXPECT_EQ(TempFilesLeft(), 1);
                closed = std::chrono::steady_clock::now();
                close();
            };
            dialog->ShowInfo(owner.get(), Details(), true);
            EXPECT_LT(std::chrono::steady_clock::now() - closed, std::chrono::milliseconds(100));
            EXPECT_EQ(pump.runs, run);
            EXPECT_TRUE(!dialog || (!dialog->isVisible() && dialog->parent() == nullptr));
            EXPECT_EQ(TempFilesLeft(), 0);
            EXPECT_EQ(pointer.Get(), ScreenPointer::Default);
        }
    }
    EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace

TEST_F(frmFileInfoTest, MarksTheLevelInUseAndUndoesEveryClick)
{
    for (const int level : {6, 1, 9, 0, 10, -1}) {
        SCOPED_TRACE(level);
        auto file = Details();
        file.CompLevel = level;
        const bool isMarked = level >= 1 && level <= 9;
        const auto marked = isMarked ? std::to_string(level) : std::string();
        Show(
            [&] {
                Results()->show();
                QTest::qWait(1);
                for (int each = 1; each <= 9; ++each) {
                    EXPECT_EQ(Row(each)->font(2).bold(), each == level);
                    EXPECT_EQ(Row(each)->foreground(1).color() == QColor(0, 0, 192), each == level);
                    const auto place = dialog->lstLevels->visualItemRect(Row(each));
                    QTest::mouseClick(dialog->lstLevels->viewport(), Qt::LeftButton, {},
                                      {place.left() + 10, place.center().y()});
                    EXPECT_EQ(Checked(), marked);
                    dialog->lstLevels->setCurrentItem(Row(each));
                    QTest::keyClick(dialog->lstLevels, Qt::Key_Space);
                    EXPECT_EQ(Checked(), marked);
                }
            },
            false, file);
    }
}

TEST_F(frmFileInfoTest, AFailedAnalysisCanBeStartedAgain)
{
    int height = 0;
    Show([&] {
        height = dialog->height();
        for (const bool isThere : {false, true}) {
            if (isThere) PutCacheFile(BytesOf("damaged"));
            Click(dialog->cmdCompr);
            ASSERT_EQ(boxes.shown.size(), isThere ? 2U : 1U);
            EXPECT_NE(boxes.shown.back().find(isThere ? "Cannot decompress " : "Cannot open "),
                      std::string::npos);
            EXPECT_TRUE(dialog->cmdCompr->isEnabled() && !Results()->isVisible());
            EXPECT_FALSE(dialog->prgAnalysis->isVisible());
            EXPECT_EQ(dialog->height(), height);
        }
        PutCacheFile(Compressed(PageText(1000)));
        Click(dialog->cmdCompr);
        EXPECT_TRUE(Results()->isVisible());
    });
}
