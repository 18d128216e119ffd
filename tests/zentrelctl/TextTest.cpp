#include "zentrel/Printable.h"
#include "zentrel/ctl/Json.h"
#include "zentrel/ctl/Progress.h"
#include "zentrel/ctl/PropertyText.h"
#include "zentrel/ctl/Table.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace zentrel {

namespace {

std::string Quoted(std::string_view text)
{
    std::ostringstream out;
    JsonWriter(out).Text(text);
    return out.str();
}

}  // namespace

TEST(Printable, NothingThatATerminalObeysIsLeft)
{
    EXPECT_EQ(Printable("plain \xC3\xA4 \xF0\x9F\x98\x80 \\ text"),
              "plain \xC3\xA4 \xF0\x9F\x98\x80 \\ text");
    EXPECT_EQ(Printable(std::string_view("\0\n\x1B[2J\x7F", 7)), "\\x00\\x0a\\x1b[2J\\x7f");
    EXPECT_EQ(Printable("\xC2\x9B"
                        "5m|\xE2\x80\xAE|\xE2\x80\xA8|\xE2\x81\xA6"),
              "\\xc2\\x9b5m|\\xe2\\x80\\xae|\\xe2\\x80\\xa8|\\xe2\\x81\\xa6");
    EXPECT_EQ(Printable("\xFF|\xC3|\xED\xA0\x80|\xE4\xBD"), "\\xff|\\xc3|\\xed\\xa0\\x80|\\xe4\\xbd");
}

TEST(Json, TextsAreEscapedAndAlwaysUtf8)
{
    EXPECT_EQ(Quoted("a\"b\\c/\xC3\xA4"), "\"a\\\"b\\\\c/\xC3\xA4\"");
    EXPECT_EQ(Quoted(std::string_view("\0\n\x7F", 3)), R"("\u0000\u000a\u007f")");
    EXPECT_EQ(Quoted("\xC2\x9B\xE2\x80\xAE"), R"("\u009b\u202e")");
    EXPECT_EQ(Quoted("a\xFF\xC3"), "\"a\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(Json, ContainersNestWithCommasWhereTheyBelong)
{
    std::ostringstream out;
    JsonWriter json(out);
    json.BeginObject().Key("none").BeginArray().EndArray();
    json.Key("two").BeginArray().Number(-1).Number(0.25).EndArray();
    json.Key("one").BeginObject().Key("n").Number(std::numeric_limits<std::uint64_t>::max()).EndObject();
    json.EndObject();
    EXPECT_EQ(out.str(), "{\n  \"none\": [],\n  \"two\": [\n    -1,\n    0.25\n  ],\n"
                         "  \"one\": {\n    \"n\": 18446744073709551615\n  }\n}\n");
}

TEST(IsoTime, DatesFollowTheCalendarFromEndToEnd)
{
    constexpr std::uint64_t kDay = 864'000'000'000;
    const std::pair<std::uint64_t, const char*> cases[] = {
        {0, "1601-01-01T00:00:00Z"},
        {1, "1601-01-01T00:00:00.0000001Z"},
        {116'444'736'000'000'000, "1970-01-01T00:00:00Z"},
        {116'444'736'000'000'000 + 951'782'399 * 10'000'000ULL, "2000-02-28T23:59:59Z"},
        {116'444'736'000'000'000 + 951'868'799 * 10'000'000ULL + 5'000'000, "2000-02-29T23:59:59.5Z"},
        {145'731 * kDay, "2000-01-01T00:00:00Z"},
        {(145'731 + 366) * kDay - 1, "2000-12-31T23:59:59.9999999Z"},
        {(59 + 36'524 * 3) * kDay, "1901-03-01T00:00:00Z"},
        {std::numeric_limits<std::uint64_t>::max(), "+60056-05-28T05:36:10.9551615Z"},
    };
    for (const auto& [ticks, text] : cases) EXPECT_EQ(IsoTime(ticks), text);
}

TEST(Progress, TheLineAlwaysFitsAndTheBarGrowsToTheEnd)
{
    EXPECT_EQ(ProgressLine("Warming", 5, 10, 40), "Warming [#########          ] 50 % 5/10");
    EXPECT_EQ(ProgressLine("Warming", 10, 10, 40), "Warming [#################] 100 % 10/10");
    EXPECT_EQ(ProgressLine("Warming", 20, 10, 20), "Warming 100 %");
    EXPECT_EQ(ProgressLine("Warming", 7, 0, 80), "Warming 7");
    for (std::size_t columns = 0; columns < 300; ++columns)
        EXPECT_LT(ProgressLine("Warming", 123, 456, columns).size(), columns + (columns == 0));
}

TEST(Table, ColumnsLineUpByCharacters)
{
    std::ostringstream out;
    WriteTable(out, {{"A", "B"}, {"\xC3\xA4\xC3\xB6", "x"}, {"\n", ""}});
    EXPECT_EQ(out.str(), "A     B\n\xC3\xA4\xC3\xB6    x\n\\x0a\n");
}

}  // namespace zentrel
