#include "platform/UserLocale.h"

#include <gtest/gtest.h>

namespace {

TEST(UserLocale, KeepsTheDefaultsWithoutAUsableLocale)
{
    EXPECT_EQ(ReadUserLocale("C"), UserLocale());
    EXPECT_EQ(ReadUserLocale("POSIX"), UserLocale());
    EXPECT_EQ(ReadUserLocale("C.UTF-8"), UserLocale());
    EXPECT_EQ(ReadUserLocale("xx_NOWHERE.UTF-8"), UserLocale());
}

TEST(UserLocale, FindsWhatSeparatesHoursAndMinutes)
{
    for (const auto format : {"%H:%M:%S", "%I:%M:%S %p", "%T", "%r"})
        EXPECT_EQ(TimeSeparatorOf(format), ":") << format;
    for (const auto format : {"%H.%M.%S", "%p %-I.%M.%S", "%H.%M"})
        EXPECT_EQ(TimeSeparatorOf(format), ".") << format;
    EXPECT_EQ(TimeSeparatorOf("%k,%M,%S"), ",");
    EXPECT_EQ(TimeSeparatorOf("%OH - %OM - %OS"), " - ");
    for (const auto format : {"%Hh%Mm%Ss", "%H\u6642%M\u5206%S\u79D2", "%S.%M.%H", "%H%M%S", "%H", "%", ""})
        EXPECT_EQ(TimeSeparatorOf(format), ":") << format;
}

}  // namespace
