#include "platform/UserLocale.h"

#include <gtest/gtest.h>

namespace {

TEST(UserLocale, KeepsTheDefaultsWithoutAUsableLocale)
{
    EXPECT_EQ(ReadUserLocale("C"), UserLocale());
    EXPECT_EQ(ReadUserLocale("C.UTF-8"), UserLocale());
    EXPECT_EQ(ReadUserLocale("xx_NOWHERE.UTF-8"), UserLocale());
}

}  // namespace
