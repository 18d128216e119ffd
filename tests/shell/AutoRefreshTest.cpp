#include "shell/AutoRefresh.h"

#include <gtest/gtest.h>

namespace {

TEST(AutoRefresh, TakesAStoredIntervalAsTheItemThatHasIt)
{
    QMenu menu;
    auto* const refresh = new AutoRefresh(&menu);
    int dues = 0;
    QObject::connect(refresh, &AutoRefresh::Due, [&dues] { ++dues; });
    const auto checked = [&menu] {
        std::string items;
        for (const auto* item : menu.actions()) items += item->isChecked() ? 'x' : '-';
        return items;
    };
    EXPECT_EQ(checked(), "-x---");
    EXPECT_FALSE(refresh->IsRunning());
    const struct {
        int stored;
        const char* checked;
        int interval;
        bool isRunning;
        int dues;
    } steps[] = {
        {7777, "-x---", 7777, false, 0},  // no item's: the marks and the timer's state stay
        {10000, "--x--", 10000, true, 1}, {-1, "--x--", 10000, true, 1},  {0, "----x", 0, false, 1},
        {7777, "----x", 7777, false, 1},  {1000, "x----", 1000, true, 2}, {7777, "x----", 7777, true, 2},
    };
    for (const auto& step : steps) {
        refresh->Restore(step.stored);
        EXPECT_EQ(checked(), step.checked) << step.stored;
        EXPECT_EQ(refresh->Interval(), step.interval);
        EXPECT_EQ(refresh->IsRunning(), step.isRunning);
        EXPECT_EQ(dues, step.dues);
    }

    // What stops the timer for a while does not change the choice.
    refresh->SetEnabled(false);
    EXPECT_FALSE(refresh->IsRunning());
    refresh->SetEnabled(true);
    EXPECT_TRUE(refresh->IsRunning());
    refresh->Choose(4);
    refresh->SetEnabled(true);
    EXPECT_FALSE(refresh->IsRunning()) << "an interval of 0 never fires";
}

}  // namespace
