#include "zentrel/ConfigFile.h"

#include "base/Text.h"
#include "fuzz/Targets.h"

namespace fuzz {

namespace {

// The same settings written anew, one a line.
std::string Written(const std::vector<zentrel::ConfigSection>& sections)
{
    std::string text;
    for (const auto& section : sections) {
        if (!section.kind.empty()) text += "[" + section.kind + " " + section.name + "]\n";
        for (const auto& entry : section.entries) text += entry.key + " = " + entry.value + "\n";
    }
    return text;
}

void RequireAscending(int& last, int line)
{
    Require(line > last, "every heading and entry has a line of its own, in their order");
    last = line;
}

}  // namespace

void Config(Input bytes)
{
    const auto text = TextOf(bytes);
    const auto sections = zentrel::ParseConfig(text);
    if (!sections) return Require(sections.error().description.starts_with("line "), "a fault has a line");
    Require(!sections->empty() && sections->front().kind.empty(), "what has no heading comes first");
    int line = 0;
    for (const auto& section : *sections) {
        if (&section != &sections->front()) RequireAscending(line, section.line);
        for (const auto& entry : section.entries) {
            RequireAscending(line, entry.line);
            Require(!entry.key.empty(), "an entry has a key");
            Require(IsValidUtf8(entry.value) && entry.value.find('\n') == std::string::npos,
                    "a value is one line");
        }
    }
    const auto written = Written(*sections);
    const auto again = zentrel::ParseConfig(written);
    Require(again && Written(*again) == written, "what is written anew is read as it was");
}

}  // namespace fuzz
