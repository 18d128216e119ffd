#pragma once

#include <string>
#include <string_view>

namespace zentrel {

// One character at the front of a text that may hold any bytes.
struct TextPiece {
    enum class Kind {
        Plain,
        Control,  // control characters, line separators and marks that turn the writing direction
        Broken,   // one byte that is not UTF-8
    };

    std::string_view bytes;
    Kind kind = Kind::Plain;
};

// Takes the character off the front of a text that is not empty.
TextPiece TakeCharacter(std::string_view& text);

// The text as it may be shown on a terminal or written to a log: whatever could move the cursor, forge a
// line or break the encoding stands as \xNN, byte by byte.
std::string Printable(std::string_view text);

}  // namespace zentrel
