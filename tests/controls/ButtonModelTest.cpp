#include "controls/ButtonModel.h"

#include <gtest/gtest.h>

namespace {

using Look = ButtonModel::Look;

// Each step of a story: P press, M move, R release; a capital letter inside, a small one outside; the left
// button, or the right one after '2'. What it looks like after the last step, and whether that was a click.
TEST(ButtonModel, FollowsTheMouse)
{
    const struct {
        const char* story;
        Look look;
        bool hasCapture;
        bool isClick;
    } cases[] = {
        {"", Look::Normal, false, false},       {"M", Look::Hot, true, false},
        {"Mm", Look::Normal, false, false},     {"MP", Look::Pressed, true, false},
        {"MPR", Look::Hot, true, true},         {"MPm", Look::Normal, true, false},
        {"MPmM", Look::Pressed, true, false},   {"MPmr", Look::Normal, false, false},
        {"MPmMR", Look::Hot, true, true},       {"M2P", Look::Hot, true, false},
        {"M2P2R", Look::Hot, true, false},      {"M2Pm", Look::Normal, true, false},
        {"M2Pm2r", Look::Normal, false, false}, {"MP2P2R", Look::Hot, true, false},
        {"MP2PR2R", Look::Hot, true, false},    {"Mpm", Look::Normal, true, false},
        {"mPR", Look::Hot, false, true},        {"MPRmM", Look::Hot, true, false},
    };
    for (const auto& one : cases) {
        ButtonModel model;
        bool isClick = false;
        int button = MouseButton::Left;
        for (const char* step = one.story; *step != 0; ++step) {
            isClick = false;
            switch (*step) {
            case '2': button = MouseButton::Right; continue;
            case 'P':
            case 'p': model.Press(button, *step == 'P'); break;
            case 'M':
            case 'm': model.Move(*step == 'M'); break;
            default: isClick = model.Release(button, *step == 'R');
            }
            button = MouseButton::Left;
        }
        EXPECT_EQ(model.State(), one.look) << one.story;
        EXPECT_EQ(model.HasCapture(), one.hasCapture) << one.story;
        EXPECT_EQ(isClick, one.isClick) << one.story;
        model.Cancel();
        EXPECT_FALSE(model.HasCapture() || model.State() != Look::Normal || model.Release(1, true))
            << one.story;
    }
}

TEST(ButtonModel, HasNoBorderWiderThanHalf)
{
    const struct {
        int border, width, height, fitting;
    } cases[] = {
        {15, 20, 40, 10}, {15, 40, 20, 10}, {10, 20, 20, 10}, {-3, 20, 20, 0},  {9, 5, 50, 2},
        {9, 7, 50, 4},    {9, 50, 0, 0},    {1, 20, 20, 1},   {32767, 3, 1, 0},
    };
    for (const auto& one : cases)
        EXPECT_EQ(FittingBorder(one.border, one.width, one.height), one.fitting)
            << one.border << " " << one.width;
}

}  // namespace
