#include "export/ReadableText.h"

#include "zentrel/Printable.h"

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

std::string PictureOf(std::string_view control)
{
    const auto code = static_cast<unsigned char>(control.front());
    if (control.size() > 1) return std::string(kReplacement);
    if (code == 0x7F) return "\xE2\x90\xA1";
    return {'\xE2', '\x90', static_cast<char>(0x80 + code)};
}

std::string_view EscapeOf(std::string_view character)
{
    switch (character.front()) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return character;
    }
}

std::string Convert(std::string_view text, std::size_t most, bool isHtml)
{
    using Kind = zentrel::TextPiece::Kind;
    std::string out;
    for (; !text.empty(); --most) {
        if (most == 0) return out + "\xE2\x80\xA6";
        const auto piece = zentrel::TakeCharacter(text);
        if (piece.kind == Kind::Plain) {
            out += isHtml ? EscapeOf(piece.bytes) : piece.bytes;
        } else {
            out += piece.kind == Kind::Broken ? std::string(kReplacement) : PictureOf(piece.bytes);
        }
    }
    return out;
}

}  // namespace

std::string ReadableText(std::string_view text, std::size_t most)
{
    return Convert(text, most, false);
}

std::string HtmlText(std::string_view text, std::size_t most)
{
    return Convert(text, most, true);
}
