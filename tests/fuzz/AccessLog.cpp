#include "zentrel/AccessLog.h"

#include "base/Text.h"
#include "fuzz/Targets.h"
#include "zentrel/Printable.h"

#include <string>

namespace fuzz {

namespace {

using Kind = zentrel::LogLine::Kind;

// The line that a server would log for a URL, its bytes escaped.
std::string Logged(std::string_view url)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string line = "h - - [10/Oct/2000:13:55:36 -0700] \"GET ";
    for (const char c : url) {
        const auto byte = static_cast<unsigned char>(c);
        line += "\\x";
        line += kDigits[byte >> 4];
        line += kDigits[byte & 0xFU];
    }
    return line + " HTTP/1.1\" 200 1";
}

void RequirePrintable(std::string_view text)
{
    const auto shown = zentrel::Printable(text);
    Require(IsValidUtf8(shown), "what is shown is UTF-8");
    Require(zentrel::Printable(shown) == shown, "what is shown holds nothing to be escaped");
}

}  // namespace

void AccessLog(Input bytes)
{
    const auto text = TextOf(bytes);
    RequirePrintable(text);
    const auto line = zentrel::ParseLogLine(text);
    if (line.kind != Kind::Malformed) {
        const auto longer = zentrel::ParseLogLine(std::string(text) + " more");
        Require(longer.kind == line.kind && longer.url == line.url, "fields that follow change nothing");
    }
    if (line.kind != Kind::Fetch) return Require(line.url.empty(), "only a request has a URL");
    Require(line.url.starts_with('/'), "a URL begins with a slash");
    Require(line.url.find(' ') == std::string::npos, "a URL holds no space");
    const auto again = zentrel::ParseLogLine(Logged(line.url));
    Require(again.kind == Kind::Fetch && again.url == line.url, "a logged URL is read as it was");
}

}  // namespace fuzz
