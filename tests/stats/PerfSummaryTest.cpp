#include "stats/CounterText.h"
#include "stats/PerfSummary.h"
#include "support/KeptBoxes.h"
#include "support/ScriptedSource.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

const FormatLocale kLocale;

TEST(CounterText, FollowsTheCountersType)
{
    const std::tuple<double, std::uint32_t, const char*> kCases[] = {
        {37.5, 0x20020400, "37.50%"},
        {1536, 0x00010100, "1.50 KiB"},
        {1e6, 0x00010000, "1000000"},
        {42, 0x12345678, "42"},
    };
    for (const auto& [value, type, text] : kCases) EXPECT_EQ(CounterText(value, type, kLocale), text);
    EXPECT_EQ(SummaryCaption(50, 100, kLocale), "Performance Summary (Boost -50.00%)");
    EXPECT_EQ(SummaryCaption(1e300, 1e-300, kLocale), "Performance Summary") << "beyond all numbers";
}

struct Screen : SummaryScreen {
    std::string caption = "before", captions;
    std::vector<std::string> values;

    void BuildRows(std::span<const SummaryRow> rows) override
    {
        captions.clear();
        for (const auto& row : rows) captions += row.caption + (row.isRed ? "! " : " ");
        values.assign(rows.size(), {});
    }
    std::size_t RowCount() const override { return values.size(); }
    void ShowValue(std::size_t row, const std::string& text) override { values.at(row) = text; }
    void SetCaption(const std::string& text) override { caption = text; }
    std::string Values() const
    {
        std::string text;
        for (const auto& value : values) text += value + " ";
        return text;
    }
};

class PerfSummaryTest : public testing::Test, protected KeptBoxes, protected MessagePump {
protected:
    PerfSummaryTest()
    {
        published = {{"Z", "_Total", "C", PdhType::LargeRawCount, 100, "c"},
                     {"Z", "_Total", "U", PdhType::RawCount, 300, "u"},
                     {"Z", "_Total", "d", PdhType::RawFraction, 12.5, "d"}};
        Open({"Bytes Compressed", "Bytes Uncompressed Equiv", "Bandwidth Savings"});
    }

    void Open(std::initializer_list<const char*> labels)
    {
        counters.CloseQuery();
        counters.OpenQuery();
        for (const auto* const label : labels)
            counters.AddCounter("\\Z(_Total)\\" + std::string(1, label[6]), label);
        summary.BuildPerfRows();
    }
    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override
    {
        EXPECT_EQ(style, BoxStyle::Exclamation);
        summary.UpdatePerfSummary();  // a tick behind the box
        return KeptBoxes::Show(text, style, title);
    }
    void Run() override
    {
        if (onRun) std::exchange(onRun, nullptr)();
    }
    void OnceOnRead(const std::function<void()>& what)
    {
        source.onRead = [this, what] {
            const auto once = what;  // what is held here goes with the assignment
            source.onRead = [] {};
            once();
        };
    }

    std::function<void()> onRun;
    Screen screen;
    ScriptedSource source;
    std::vector<PublishedCounter>& published = source.machines[""];
    PerformanceData library{source};
    modPerfCntr counters{library};
    PerfSummary summary{counters, kLocale, {screen, *this, *this, [] { return std::string("T"); }}};
};

TEST_F(PerfSummaryTest, ShowsEveryCounterAndTheBoost)
{
    EXPECT_EQ(screen.captions, "Bytes Compressed: Bytes Uncompressed Equiv: Bandwidth Savings:! ");
    EXPECT_EQ(screen.Values(), "--- --- --- ");
    source.calls.clear();
    summary.UpdatePerfSummary();
    EXPECT_EQ(screen.Values(), "100 300 12.50% ");
    EXPECT_EQ(screen.caption, "Performance Summary (Boost 200.00%)");
    EXPECT_EQ(source.calls, "read() ");
    published[0].value = 0;
    summary.UpdatePerfSummary();
    EXPECT_EQ(screen.caption, "Performance Summary");
    summary.ShowNoFigures();
    EXPECT_EQ(screen.Values(), "--- --- --- ");
}

TEST_F(PerfSummaryTest, TellsOfAFailedCollectionOnce)
{
    summary.UpdatePerfSummary();
    source.errors[""] = Code::AccessDenied;
    for (int i = 0; i < 2; ++i) summary.UpdatePerfSummary();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_TRUE(shown[0].starts_with("T: Cannot collect performance data\nError 0xC00")) << shown[0];
    EXPECT_EQ(screen.Values(), "100 300 12.50% ") << "stale values stay";
}

TEST_F(PerfSummaryTest, SurvivesWhateverHappensWhileMessagesRun)
{
    onRun = [this] { counters.CloseQuery(); };
    summary.UpdatePerfSummary();
    EXPECT_EQ(screen.Values(), "100 --- --- ");
    summary.UpdatePerfSummary();
    EXPECT_EQ(screen.caption, "before") << "no counters, nothing to say";

    const auto reconnect = [this] {
        Open({"Bytes Uncompressed Equiv"});
        summary.UpdatePerfSummary();
    };
    for (const bool isInRead : {false, true}) {
        Open({"Bytes Compressed", "Bandwidth Savings"});
        isInRead ? OnceOnRead(reconnect) : void(onRun = reconnect);
        summary.UpdatePerfSummary();
        EXPECT_EQ(screen.Values(), "300 ") << "the new connection's rows";
        EXPECT_EQ(screen.caption, "Performance Summary");
    }

    Open({"Bytes Compressed"});
    source.calls.clear();
    onRun = [this] { summary.UpdatePerfSummary(); };
    OnceOnRead(onRun);
    summary.UpdatePerfSummary();
    EXPECT_EQ(source.calls, "read() ") << "ticks do not pile up";
}

}  // namespace
