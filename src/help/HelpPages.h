#pragma once

#include <span>
#include <string_view>

// The pages of docs/help as they were packed at build time.
struct PackedPage {
    std::string_view key;   // the file's name without ".md"
    std::string_view text;  // Markdown, UTF-8; the first line is "# " and the title
};

std::span<const PackedPage> PackedPages();

// docs/help/contents.txt: one page a line by its key, two blanks deeper for each level; behind a colon the
// names of the windows that it is about.
std::string_view PackedContents();
