#include "zentrel/Printable.h"

#include "base/Text.h"

#include <algorithm>

namespace zentrel {

namespace {

std::size_t LengthByFirstByte(unsigned char first)
{
    if (first < 0xC0) return 1;
    return first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
}

bool IsBetween(std::string_view bytes, std::string_view least, std::string_view most)
{
    return bytes.size() == least.size() && bytes >= least && bytes <= most;
}

bool IsControl(std::string_view bytes)
{
    return IsBetween(bytes, std::string_view("\0", 1), "\x1F") || bytes == "\x7F" ||
           IsBetween(bytes, "\xC2\x80", "\xC2\x9F") ||          // C1 controls
           IsBetween(bytes, "\xE2\x80\x8E", "\xE2\x80\x8F") ||  // direction marks
           IsBetween(bytes, "\xE2\x80\xA8", "\xE2\x80\xAE") ||  // line separators, embeddings
           IsBetween(bytes, "\xE2\x81\xA6", "\xE2\x81\xA9");    // isolates
}

}  // namespace

TextPiece TakeCharacter(std::string_view& text)
{
    const auto length = std::min(LengthByFirstByte(static_cast<unsigned char>(text.front())), text.size());
    TextPiece piece{text.substr(0, length), TextPiece::Kind::Plain};
    if (!IsValidUtf8(piece.bytes)) {
        piece = {text.substr(0, 1), TextPiece::Kind::Broken};
    } else if (IsControl(piece.bytes)) {
        piece.kind = TextPiece::Kind::Control;
    }
    text.remove_prefix(piece.bytes.size());
    return piece;
}

std::string Printable(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string shown;
    shown.reserve(text.size());
    while (!text.empty()) {
        const auto piece = TakeCharacter(text);
        if (piece.kind == TextPiece::Kind::Plain) {
            shown += piece.bytes;
            continue;
        }
        for (const char c : piece.bytes) {
            const auto byte = static_cast<unsigned char>(c);
            shown += "\\x";
            shown += kDigits[byte >> 4];
            shown += kDigits[byte & 0xFU];
        }
    }
    return shown;
}

}  // namespace zentrel
