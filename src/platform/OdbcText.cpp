#include "platform/OdbcText.h"

#include "base/Text.h"

#include <algorithm>

namespace odbc {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

locale_t Utf8Locale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    return locale;
}

// Bytes of the character that the text begins with; 0 where it begins with none.
std::size_t CharacterLength(std::string_view text)
{
    constexpr std::size_t kLongest = 4;
    for (std::size_t length = 1; length <= std::min(kLongest, text.size()); ++length)
        if (IsValidUtf8(text.substr(0, length))) return length;
    return 0;
}

constexpr bool IsControl(char c)
{
    return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F;
}

constexpr bool IsWordByte(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

PlainLocale::PlainLocale() : m_before(uselocale(Utf8Locale())) {}

PlainLocale::~PlainLocale()
{
    uselocale(m_before);
}

bool IsClean(std::string_view text)
{
    return text.find('\0') == std::string_view::npos && IsValidUtf8(text);
}

std::string CleanText(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    while (!text.empty()) {
        const auto length = text.front() == '\0' ? 0 : CharacterLength(text);
        clean += length == 0 ? kReplacement : text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return clean;
}

std::string CleanLine(std::string_view text, std::size_t most)
{
    std::string line;
    while (!text.empty()) {
        const auto length = std::max<std::size_t>(CharacterLength(text), 1);
        const auto character = CharacterLength(text) == 0 ? kReplacement : text.substr(0, length);
        text.remove_prefix(length);
        if (line.size() + character.size() > most) break;
        if (!IsControl(character.front())) {
            line += character;
        } else if (!line.empty() && !line.ends_with(' ')) {
            line += ' ';
        }
    }
    while (line.ends_with(' ')) line.pop_back();
    return line;
}

std::string UndoTwiceEncoded(std::string text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(text[i]);
        if (first < 0x80) {
            bytes += text[i];
            continue;
        }
        // U+0080 to U+00FF: two bytes, of which the first is C2 or C3.
        if ((first != 0xC2 && first != 0xC3) || i + 1 == text.size()) return text;
        const auto second = static_cast<unsigned char>(text[++i]);
        bytes += static_cast<char>(((first & 0x03U) << 6U) | (second & 0x3FU));
    }
    return bytes.size() < text.size() && IsValidUtf8(bytes) ? bytes : text;
}

std::string WithoutSecret(std::string message, std::string_view secret)
{
    constexpr std::size_t kShort = 4;
    constexpr std::string_view kInstead = "***";
    if (secret.empty()) return message;
    for (auto at = message.find(secret); at != std::string::npos; at = message.find(secret, at)) {
        const auto behind = at + secret.size();
        const bool isWithinWord = (at > 0 && IsWordByte(message[at - 1])) ||
                                  (behind < message.size() && IsWordByte(message[behind]));
        if (secret.size() >= kShort || !isWithinWord) {
            message.replace(at, secret.size(), kInstead);
            at += kInstead.size();
        } else {
            ++at;
        }
    }
    return message;
}

}  // namespace odbc
