#pragma once

#include <QString>

#include <string_view>

// A text from outside, which may hold any bytes, as it may be shown in one line of a window: bytes that are
// not UTF-8 and marks that turn the writing direction become replacement characters, control characters
// (line breaks and tabs included) their pictures. At most 1000 characters, then an ellipsis. The result is
// plain text; where it goes must not take it for markup.
QString PlainText(std::string_view text);

// The same for a text of several lines, at most 40 of them; their breaks ("\n" or "\r\n") stay.
QString PlainLines(std::string_view text);
