#include "base/Text.h"

#include "base/ChunkedVector.h"
#include "base/Result.h"

#include <cerrno>
#include <gtest/gtest.h>

TEST(Text, LowerCaseKnowsLettersBeyondAscii)
{
    EXPECT_EQ(LowerCase("HTM.\xC3\x84\xCE\xA9\xD0\x96-1"), "htm.\xC3\xA4\xCF\x89\xD0\xB6-1");
    EXPECT_EQ(LowerCase("A\xFF\xC3Z"), "a\xFF\xC3z");
}

TEST(Text, Utf8IsCheckedToTheLetter)
{
    for (const char* good : {"", "plain", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(IsValidUtf8(good)) << good;
    for (const char* bad : {"\x80", "\xC0\xAF", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
                            "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "a\xE2\x82"})
        EXPECT_FALSE(IsValidUtf8(bad)) << bad;
}

TEST(Text, OrdersWithoutRegardToCaseAndThenByBytes)
{
    EXPECT_LT(CompareText("alpha", "Beta"), 0);
    EXPECT_GT(CompareText("b", "A"), 0);
    EXPECT_LT(CompareText("A", "a"), 0);
    EXPECT_EQ(CompareFolded("A", "a"), 0);
    EXPECT_LT(CompareText("a", "aa"), 0);
    EXPECT_LT(CompareText("z", "\xC3\xA9"), 0);
    EXPECT_EQ(TrimSlashes("/a/b/"), "a/b");
    EXPECT_EQ(TrimSlashes("/"), "");
}

TEST(Errors, CodesMatchByTheirLowSixteenBits)
{
    const Result<int> failed = Fail(0x80070005, "here");
    EXPECT_TRUE(failed.error().Is(Code::AccessDenied));
    EXPECT_EQ(failed.error().description, "Access is denied.");
    EXPECT_TRUE(SystemError({Code::ServerUnavailable, "", ""}).Is(1722));
    EXPECT_EQ(CodeFromErrno(ENOSPC), Code::DiskFull);
    EXPECT_EQ(CodeFromErrno(EPIPE), Code::IoError);
}

TEST(ChunkedVector, ElementsStayWhereTheyAre)
{
    ChunkedVector<int, 2> numbers;
    TextPool texts;
    const int* first = &numbers.push_back(0);
    const char* text = texts.Keep("abc", 3);
    for (int i = 1; i < 100; ++i) numbers.push_back(i);
    const std::string big(std::size_t{1} << 20U, 'x');
    EXPECT_EQ(std::string_view(texts.Keep(big.data(), big.size()), big.size()), big);
    EXPECT_EQ(first, &numbers[0]);
    EXPECT_EQ(numbers[99], 99);
    EXPECT_EQ(std::string_view(text, 3), "abc");
    numbers.clear();
    EXPECT_EQ(numbers.size(), 0U);
}
