#include "zentrel/Printable.h"
#include "zentrel/ctl/Json.h"

#include <gtest/gtest.h>

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

}  // namespace zentrel
