#include "help/HelpBook.h"

#include "base/Text.h"
#include "base/Translate.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

constexpr std::string_view kExtension = ".md";
// Bytes of a snippet before and behind what was found.
constexpr std::size_t kBefore = 50;
constexpr std::size_t kBehind = 110;

std::string_view CutLine(std::string_view& text)
{
    const auto end = std::min(text.find('\n'), text.size());
    const auto line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::vector<std::string_view> SplitWords(std::string_view text)
{
    std::vector<std::string_view> words;
    while (!(text = TrimBlanks(text)).empty()) {
        const auto end = std::min(text.find(' '), text.size());
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return words;
}

std::string TitleOf(std::string_view markdown)
{
    auto line = CutLine(markdown);
    while (line.starts_with('#')) line.remove_prefix(1);
    return std::string(TrimBlanks(line));
}

// A link's text stays and its target goes; so do the signs around words.
void AppendPlainLine(std::string& out, std::string_view line)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line.substr(i).starts_with("](")) {
            i = std::min(line.find(')', i), line.size());
        } else if (line[i] == '|') {
            out += ' ';
        } else if (line[i] != '*' && line[i] != '`' && line[i] != '[') {
            out += line[i];
        }
    }
}

bool IsRuleOfTable(std::string_view line)
{
    return line.starts_with('|') && line.find_first_not_of("|-: ") == std::string_view::npos;
}

// The nearest place from `at` on where a character begins.
std::size_t CharacterStart(std::string_view text, std::size_t at)
{
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) ++at;
    return std::min(at, text.size());
}

std::string SnippetAround(std::string_view text, std::size_t at)
{
    auto begin = at <= kBefore ? 0 : CharacterStart(text, at - kBefore);
    if (begin > 0) begin = std::min(text.find(' ', begin), at);
    auto end = CharacterStart(text, std::min(at + kBehind, text.size()));
    if (end < text.size()) end = std::max(text.rfind(' ', end), at);
    std::string snippet(TrimBlanks(text.substr(begin, end - begin)));
    if (begin > 0) snippet.insert(0, "\u2026 ");
    if (end < text.size()) snippet += " \u2026";
    return snippet;
}

// How well a page fits, the less the better: words that it lacks, words that its title lacks, and whether the
// words stand nowhere side by side.
using Rank = std::tuple<std::size_t, std::size_t, bool>;

std::size_t MissingWords(const Rank& rank)
{
    return std::get<0>(rank);
}

struct Match {
    Rank rank;
    std::size_t place = std::string::npos;  // in the body
};

// All texts in lower case.
Match MatchWords(const std::string& title, const std::string& body, const std::string& wanted,
                 const std::vector<std::string_view>& parts)
{
    Match match;
    auto& [missing, notInTitle, isApart] = match.rank;
    for (const auto part : parts) {
        const bool isInTitle = title.find(part) != std::string::npos;
        if (!isInTitle && body.find(part) == std::string::npos) ++missing;
        if (!isInTitle) ++notInTitle;
    }
    const auto run = LongestRun(body, wanted);
    if (!run.empty()) match.place = body.find(run);
    isApart = run.size() < wanted.size() && title.find(wanted) == std::string::npos;
    return match;
}

}  // namespace

HelpBook::HelpBook(std::string_view contents, std::span<const PackedPage> pages)
{
    m_pages.reserve(pages.size());
    while (!contents.empty()) AddLine(CutLine(contents), pages);
    for (const auto& page : pages)
        if (Find(page.key) == nullptr) AddLine(page.key, pages);
}

void HelpBook::AddLine(std::string_view line, std::span<const PackedPage> pages)
{
    const auto depth = std::min(line.find_first_not_of(' '), line.size()) / 2;
    const auto colon = std::min(line.find(':'), line.size());
    const auto key = TrimBlanks(line.substr(0, colon));
    const auto page =
        std::find_if(pages.begin(), pages.end(), [key](const auto& one) { return one.key == key; });
    if (page == pages.end() || Find(key) != nullptr) return;
    m_pages.push_back({std::string(key), TitleOf(page->text), std::string(page->text), depth});
    for (const auto name : SplitWords(line.substr(std::min(colon + 1, line.size()))))
        m_keyOfWindow.emplace(name, key);
}

const HelpPage* HelpBook::Find(std::string_view key) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(), [key](const auto& page) { return page.key == key; });
    return found == m_pages.end() ? nullptr : &*found;
}

const HelpPage* HelpBook::PageOf(std::string_view windowName) const
{
    const auto found = m_keyOfWindow.find(windowName);
    return found == m_keyOfWindow.end() ? nullptr : Find(found->second);
}

std::string HelpBook::TextOf(std::string_view key) const
{
    if (const auto* const page = Find(key)) return page->text;
    return "# " + Translate("HelpBook", "There is no such page") + "\n\n" +
           Translate("HelpBook", "The help has no page of this name. The contents and the search lead to all "
                                 "that there are.") +
           '\n';
}

std::vector<HelpHit> HelpBook::Search(std::string_view words) const
{
    const auto wanted = LowerCase(TrimBlanks(words));
    const auto parts = SplitWords(wanted);
    if (parts.empty()) return {};
    std::vector<std::pair<Rank, HelpHit>> found;
    for (const auto& page : m_pages) {
        const auto body = PlainHelpText(page.text);
        const auto match = MatchWords(LowerCase(page.title), LowerCase(body), wanted, parts);
        if (MissingWords(match.rank) > parts.size() / 2) continue;
        // Lower case may be longer or shorter in bytes; for a snippet the place is near enough.
        const auto place = match.place < body.size() ? match.place : 0;
        found.emplace_back(match.rank, HelpHit{&page, SnippetAround(body, place)});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    const bool isComplete = !found.empty() && MissingWords(found.front().first) == 0;
    std::vector<HelpHit> hits;
    for (auto& [rank, hit] : found)
        if (!isComplete || MissingWords(rank) == 0) hits.push_back(std::move(hit));
    return hits;
}

std::string_view LongestRun(std::string_view text, std::string_view words)
{
    const auto parts = SplitWords(words);
    std::string_view longest;
    std::size_t most = 0;
    for (std::size_t first = 0, last = 0; last < parts.size();) {
        const auto* const end = parts[last].data() + parts[last].size();
        const std::string_view run(parts[first].data(), static_cast<std::size_t>(end - parts[first].data()));
        if (text.find(run) == std::string_view::npos) {
            last = std::max(last, ++first);
            continue;
        }
        if (++last - first <= most) continue;
        most = last - first;
        longest = run;
    }
    return longest;
}

std::string_view KeyOfLink(std::string_view link)
{
    const bool isPage = link.ends_with(kExtension) && link.find_first_of(":/\\") == std::string_view::npos;
    return isPage ? link.substr(0, link.size() - kExtension.size()) : std::string_view();
}

std::string PlainHelpText(std::string_view markdown)
{
    std::string text;
    CutLine(markdown);
    while (!markdown.empty()) {
        auto line = CutLine(markdown);
        if (IsRuleOfTable(line)) continue;
        while (line.starts_with('#')) line.remove_prefix(1);
        if (!text.empty()) text += ' ';
        AppendPlainLine(text, line);
    }
    text.erase(std::unique(text.begin(), text.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
               text.end());
    return std::string(TrimBlanks(text));
}
