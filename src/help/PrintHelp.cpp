#include "help/PrintHelp.h"

#include "base/Text.h"
#include "base/Translate.h"
#include "help/HelpBook.h"

#include <algorithm>

namespace {

constexpr int kWrongUsage = 2;
constexpr std::size_t kGap = 2;

void PrintContents(std::ostream& out, const HelpBook& book)
{
    std::size_t width = 0;
    for (const auto& page : book.Pages()) width = std::max(width, page.key.size() + kGap * page.depth);
    for (const auto& page : book.Pages()) {
        const auto begin = std::string(kGap * page.depth, ' ') + page.key;
        out << begin << std::string(width - begin.size() + kGap, ' ') << page.title << '\n';
    }
}

}  // namespace

int PrintHelpPage(std::ostream& out, std::ostream& errors, const std::string& name)
{
    const HelpBook book;
    if (name.empty()) {
        PrintContents(out, book);
        return 0;
    }
    const auto* page = book.Find(LowerCase(name));
    if (page == nullptr) page = book.PageOf(name);
    if (page == nullptr) {
        errors << "quillet: "
               << Translate("PrintHelp",
                            "there is no help page of this name; without a name the pages are listed")
               << '\n';
        return kWrongUsage;
    }
    out << page->text;
    return 0;
}
