#include "controls/PropertyBag.h"
#include "controls/SystemColors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(PropertyBag, ReadsOneKindAsAnother)
{
    PropertyBag bag;
    bag.WriteFloat("half", 2.5F, 0);
    bag.WriteFloat("huge", -std::numeric_limits<float>::infinity(), 0);
    bag.WriteFloat("none", std::nanf(""), 0);
    bag.WriteText("text", "12", "");
    bag.WriteBool("yes", true, false);
    EXPECT_EQ(bag.ReadInt("half", 9), 2);
    EXPECT_TRUE(bag.ReadBool("half", false));
    EXPECT_EQ(bag.ReadInt("huge", 9), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(bag.ReadInt("none", 9), 9);
    EXPECT_EQ(bag.ReadInt("text", 9), 9);
    EXPECT_EQ(bag.ReadFloat("yes", 9), 1);
    EXPECT_EQ(bag.ReadText("yes", "no text"), "no text");
    bag.WriteBool("yes", false, false);
    EXPECT_FALSE(bag.Contains("yes")) << "the default takes it out again";
}

TEST(SystemColors, FollowThePalette)
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::cyan);
    palette.setColor(QPalette::Dark, Qt::magenta);
    palette.setColor(QPalette::Button, Qt::yellow);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::gray);
    EXPECT_EQ(SystemColor(0x80000005, palette), QColor(Qt::cyan));
    EXPECT_EQ(SystemColor(0x80000010, palette), QColor(Qt::magenta));
    EXPECT_EQ(SystemColor(0x80000011, palette), QColor(Qt::gray));
    for (const auto face : {0x8000000FU, 0x80000019U, 0xFFFFFFFFU, 0x80FF000FU})
        EXPECT_EQ(SystemColor(face, palette), QColor(Qt::yellow)) << face;
    EXPECT_EQ(SystemColor(0x00FF8001, palette), QColor(0x01, 0x80, 0xFF));
}

}  // namespace
