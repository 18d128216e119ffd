#include "shell/DemoPages.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

// A file: an opening, a line that comes again with its number in place of '#', an ending.
struct Page {
    const char* path;
    const char* opening;
    const char* line;
    const char* ending;
    int lines;
};

constexpr std::array<Page, 12> kPages{{
    {"index.html",
     "<!DOCTYPE html>\n<title>Welcome</title>\n<link rel=\"stylesheet\" href=\"style/site.css\">\n",
     "<p>Welcome to page # of this little site. Everything here is real, if small.</p>\n", "", 30},
    {"search.html",
     "<!DOCTYPE html>\n<title>Search</title>\n<form action=\"search.html\"><input name=\"q\">\n",
     "<li><a href=\"shop/item#.html\">Result #</a>, found a moment ago</li>\n", "</form>\n", 80},
    {"news/today.html", "<!DOCTYPE html>\n<title>Today</title>\n",
     "<h2>News item #</h2><p>What happened, in a word.</p>\n", "", 60},
    {"news/feed.xml", "<?xml version=\"1.0\"?>\n<rss version=\"2.0\"><channel>\n",
     "<item><title>News item #</title><link>/news/today.html</link></item>\n", "</channel></rss>\n", 90},
    {"shop/catalogue.html", "<!DOCTYPE html>\n<title>Catalogue</title>\n<table>\n",
     "<tr><td>Article #</td><td>in stock</td><td>1#.00</td></tr>\n", "</table>\n", 400},
    {"shop/prices.json", "{\"prices\": [\n", "  {\"article\": #, \"price\": 1#.0, \"currency\": \"EUR\"},\n",
     "  {}\n]}\n", 300},
    {"shop/terms.txt", "Terms of business\n\n", "#. Goods are sold as they are, and they are good.\n", "",
     40},
    {"style/site.css", "body { font: 16px/1.5 sans-serif; }\n",
     ".column# { float: left; width: #px; margin: 0 4px; }\n", "", 120},
    {"style/print.css", "@media print {\n", ".column# { width: auto; float: none; }\n", "}\n", 40},
    {"scripts/menu.js", "\"use strict\";\nconst menu = [];\n",
     "menu.push({ id: #, title: 'Entry #', open: false });\n", "", 150},
    {"images/logo.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 400 400\">\n",
     "<circle cx=\"200\" cy=\"200\" r=\"#\" fill=\"none\" stroke=\"#333\"/>\n", "</svg>\n", 100},
    {"Größe & Maß.txt", "Sizes and measures\n\n", "Size #: as large as it needs to be\n", "", 50},
}};

std::string Content(const Page& page)
{
    std::string content = page.opening;
    for (int i = 1; i <= page.lines; ++i)
        for (const char c : std::string_view(page.line)) {
            if (c == '#')
                content += std::to_string(i);
            else
                content += c;
        }
    return content + page.ending;
}

}  // namespace

Done WriteDemoPages(const fs::path& folder)
{
    for (const auto& page : kPages) {
        const auto file = folder / page.path;
        std::error_code error;
        fs::create_directories(file.parent_path(), error);
        std::ofstream out(file, std::ios::binary);
        out << Content(page);
        out.close();
        if (!out) return FailErrno(errno, "Demo", "Cannot write " + file.string());
    }
    return {};
}
