#pragma once

#include "help/HelpPages.h"

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct HelpPage {
    std::string key;
    std::string title;
    std::string text;       // Markdown, with the title
    std::size_t depth = 0;  // in the contents; 0 at the top
};

struct HelpHit {
    const HelpPage* page = nullptr;
    std::string snippet;  // one line from around the place, or from the beginning when only the title matches
};

// The help pages in the order of the contents, a page's children right behind it. Texts are UTF-8. Pointers
// to pages hold as long as the book.
class HelpBook {
public:
    // A page that is in the contents but not among the pages is left out; one that is only among the pages
    // comes last, at the top level.
    HelpBook(std::string_view contents, std::span<const PackedPage> pages);
    HelpBook() : HelpBook(PackedContents(), PackedPages()) {}

    const std::vector<HelpPage>& Pages() const { return m_pages; }
    const HelpPage* Find(std::string_view key) const;           // null when there is none
    const HelpPage* PageOf(std::string_view windowName) const;  // what F1 in that window opens; null: nothing

    // The page with this key; for a key that there is no page of, one that says so.
    std::string TextOf(std::string_view key) const;

    // Pages with all the words, in any case: the more of them in the title, the earlier; then those where
    // they stand side by side; then in the order of the contents. When no page has all, those with at least
    // half of them, the most first: a message may be looked for with the names that it was filled with.
    std::vector<HelpHit> Search(std::string_view words) const;

private:
    void AddLine(std::string_view line, std::span<const PackedPage> pages);

    std::vector<HelpPage> m_pages;
    std::map<std::string, std::string, std::less<>> m_keyOfWindow;
};

// The most of the words that stand side by side in the text; empty when none does.
std::string_view LongestRun(std::string_view text, std::string_view words);

// Where a link of a page leads to: "options" for "options.md"; empty for a link out of the book.
std::string_view KeyOfLink(std::string_view link);

// The text of a page without its title and the signs of Markdown, as one line.
std::string PlainHelpText(std::string_view markdown);
