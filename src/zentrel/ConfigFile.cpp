#include "zentrel/ConfigFile.h"

#include "base/Text.h"
#include "zentrel/TextFile.h"

#include <algorithm>
#include <optional>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "ConfigFile";
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMostBytes = 1U << 20U;

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsWord(std::string_view text)
{
    const auto fits = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_' || c == '.';
    };
    return !text.empty() && std::all_of(text.begin(), text.end(), fits);
}

bool HasControls(std::string_view text)
{
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte < 0x20 && c != '\t') || byte == 0x7F;
    });
}

class Parser {
public:
    // The section before the first heading is always there, if only without entries.
    Parser() { m_sections.emplace_back(); }

    // What is wrong with the line, if anything.
    std::optional<std::string> Take(int number, std::string_view raw)
    {
        const auto line = Trim(raw);
        if (!IsValidUtf8(line)) return "is not valid UTF-8";
        if (line.empty() || line.front() == '#') return {};
        if (HasControls(line)) return "holds a control character";
        return line.front() == '[' ? TakeHeading(number, line) : TakeEntry(number, line);
    }

    std::vector<ConfigSection> Sections() && { return std::move(m_sections); }

private:
    std::optional<std::string> TakeHeading(int number, std::string_view line)
    {
        if (line.back() != ']') return "has no ] at its end";
        const auto heading = Trim(line.substr(1, line.size() - 2));
        const auto kind = heading.substr(0, heading.find_first_of(kBlanks));
        const auto name = Trim(heading.substr(kind.size()));
        if (!IsWord(kind) || name.find_first_of(" \t[]") != std::string_view::npos)
            return "is no heading of the form [kind] or [kind name]";
        m_sections.push_back({number, std::string(kind), std::string(name), {}});
        return {};
    }

    std::optional<std::string> TakeEntry(int number, std::string_view line)
    {
        const auto equals = line.find('=');
        const auto key = Trim(line.substr(0, equals));
        if (equals == std::string_view::npos || !IsWord(key)) return "is not of the form key = value";
        m_sections.back().entries.push_back(
            {number, std::string(key), std::string(Trim(line.substr(equals + 1)))});
        return {};
    }

    std::vector<ConfigSection> m_sections;
};

}  // namespace

Result<std::vector<ConfigSection>> ParseConfig(std::string_view text)
{
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    Parser parser;
    for (int number = 1; !text.empty(); ++number) {
        const auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (const auto fault = parser.Take(number, line))
            return Fail(Code::InvalidData, kSource,
                        "line " + std::to_string(number) + ": it " + *fault + ".");
    }
    return std::move(parser).Sections();
}

Result<std::vector<ConfigSection>> ReadConfig(const std::filesystem::path& file)
{
    const auto text = ReadTextFile(file, kMostBytes);
    if (!text) return Fail(text.error());
    auto sections = ParseConfig(*text);
    if (!sections)
        return Fail(sections.error().code, kSource, file.string() + ": " + sections.error().description);
    return sections;
}

}  // namespace zentrel
