#include "zentrel/AccessLog.h"

#include <gtest/gtest.h>

namespace zentrel {

namespace {

using Kind = LogLine::Kind;

// A line of the common format around a request as it stands in the log.
std::string Common(const std::string& request)
{
    return "127.0.0.1 - frank [10/Oct/2000:13:55:36 -0700] \"" + request + "\" 200 2326";
}

}  // namespace

TEST(AccessLog, RequestsAreReadOutOfEveryLegalLine)
{
    const std::tuple<std::string, Kind, std::string> cases[] = {
        {Common("GET /a.gif HTTP/1.0"), Kind::Fetch, "/a.gif"},
        {Common("HEAD /?q=%20&x=1 HTTP/1.1"), Kind::Fetch, "/?q=%20&x=1"},
        {Common("GET /old"), Kind::Fetch, "/old"},
        {Common("GET http://host:81/p?q HTTP/1.1"), Kind::Fetch, "/p?q"},
        {Common("GET http://host HTTP/1.1"), Kind::Fetch, "/"},
        {Common("GET /r?to=http://x/y HTTP/1.1"), Kind::Fetch, "/r?to=http://x/y"},
        {Common(R"(GET /a\"b\\c\x41\xc3\xa4 HTTP/1.1)"), Kind::Fetch, "/a\"b\\cA\xC3\xA4"},
        {Common("GET /c HTTP/1.1") + R"( "http://from/" "agent \"x\"" 17)", Kind::Fetch, "/c"},
        {R"(site:80 ::1 - J. "K" [x] Doe [01/Jan/2026:00:00:00 +0000] "GET /v HTTP/2.0" 304 -)", Kind::Fetch,
         "/v"},
        {Common("POST /form HTTP/1.1"), Kind::Other, ""},
        {Common("OPTIONS * HTTP/1.1"), Kind::Other, ""},
        {Common("get /lower HTTP/1.1"), Kind::Malformed, ""},
        {Common("-"), Kind::Other, ""},
    };
    for (const auto& [line, kind, url] : cases) {
        const auto read = ParseLogLine(line);
        EXPECT_EQ(read.kind, kind) << line;
        EXPECT_EQ(read.url, url) << line;
    }
}

TEST(AccessLog, HostileLinesAreMalformedAndNothingElse)
{
    const auto good = Common("GET /a HTTP/1.1");
    for (const auto& line : {
             std::string(),
             std::string(200'000, ' '),
             std::string(200'000, '"'),
             std::string("GET /a HTTP/1.1"),
             Common(""),
             Common("GET "),
             Common("GET  /a HTTP/1.1"),
             Common("GET a HTTP/1.1"),
             Common("GET /a b HTTP/1.1"),
             Common("GET /a\\x20b HTTP/1.1"),
             Common("GET ftp:/x HTTP/1.1"),
             Common("GET /a\\q HTTP/1.1"),
             Common("GET /a\\x4"),
             Common("GET /a HTTP/1.1\\"),
             Common("\xFF\xFE /a HTTP/1.1"),
             good + "kB",
             std::string(R"(h - [10/Oct/2000:13:55:36 -0700] "GET /a HTTP/1.1" 200 1)"),
             std::string(R"(h - - [10/Oct/2000:13:55:36 -0700] GET /a HTTP/1.1 200 1)"),
             std::string(R"(h - - [10/Oct/2000:13:55:36 -0700] "GET /a HTTP/1.1" abc 1)"),
         })
        EXPECT_EQ(ParseLogLine(line).kind, Kind::Malformed) << line.substr(0, 200);
}

TEST(AccessLog, ALineCutAtAnyPlaceNeverGivesAnotherRequest)
{
    const auto line = Common(R"(GET /a\x41?b=\"c HTTP/1.1)") + R"( "-" "agent")";
    int read = 0;
    for (std::size_t size = 0; size <= line.size(); ++size) {
        const auto cut = ParseLogLine(std::string_view(line).substr(0, size));
        if (cut.kind == Kind::Malformed) continue;
        EXPECT_EQ(cut.url, "/aA?b=\"c") << size;
        ++read;
    }
    EXPECT_EQ(read, 16);  // from the first digit of the byte count to the end
}

}  // namespace zentrel
