#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A text from a server, which may hold any bytes, as UTF-8 for a reader: what is not UTF-8 and what turns the
// writing direction become replacement characters, other controls (line breaks and tabs included) their
// pictures. At most so many characters, then an ellipsis.
std::string ReadableText(std::string_view text, std::size_t most = std::string_view::npos);

// The same as text of an HTML or SVG element or of an attribute in double quotes.
std::string HtmlText(std::string_view text, std::size_t most = std::string_view::npos);
