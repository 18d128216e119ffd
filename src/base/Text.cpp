#include "base/Text.h"

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cwctype>

namespace {

struct CodePoint {
    char32_t value = 0;
    std::size_t length = 0;  // bytes; 0 where the bytes are not UTF-8
};

CodePoint Decode(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto first = byte(0);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return {};
    char32_t value = first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return {};
        value = (value << 6) | (byte(i) & 0x3FU);
    }
    const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
    if (overlong || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return {};
    return {value, length};
}

void Encode(std::string& out, char32_t value)
{
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += static_cast<char>(0xC0U | (value >> 6));
        out += static_cast<char>(0x80U | (value & 0x3FU));
    } else if (value < 0x10000) {
        out += static_cast<char>(0xE0U | (value >> 12));
        out += static_cast<char>(0x80U | ((value >> 6) & 0x3FU));
        out += static_cast<char>(0x80U | (value & 0x3FU));
    } else {
        out += static_cast<char>(0xF0U | (value >> 18));
        out += static_cast<char>(0x80U | ((value >> 12) & 0x3FU));
        out += static_cast<char>(0x80U | ((value >> 6) & 0x3FU));
        out += static_cast<char>(0x80U | (value & 0x3FU));
    }
}

constexpr char FoldAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// The C library's tables for Unicode, apart from the user's locale.
locale_t UnicodeLocale()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

}  // namespace

bool IsValidUtf8(std::string_view text)
{
    while (!text.empty()) {
        const auto point = Decode(text);
        if (point.length == 0) return false;
        text.remove_prefix(point.length);
    }
    return true;
}

void AppendLowerCase(std::string& out, std::string_view text)
{
    while (!text.empty()) {
        const auto first = static_cast<unsigned char>(text.front());
        if (first < 0x80) {
            out += FoldAscii(text.front());
            text.remove_prefix(1);
            continue;
        }
        const auto point = Decode(text);
        const auto locale = UnicodeLocale();
        if (point.length == 0 || locale == nullptr) {
            out += text.front();
            text.remove_prefix(1);
            continue;
        }
        Encode(out, static_cast<char32_t>(towlower_l(static_cast<wint_t>(point.value), locale)));
        text.remove_prefix(point.length);
    }
}

std::string LowerCase(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    AppendLowerCase(out, text);
    return out;
}

int CompareFolded(std::string_view left, std::string_view right)
{
    const auto shared = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < shared; ++i) {
        if (left[i] == right[i]) continue;
        const auto a = static_cast<unsigned char>(FoldAscii(left[i]));
        const auto b = static_cast<unsigned char>(FoldAscii(right[i]));
        if (a != b) return a < b ? -1 : 1;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

int CompareText(std::string_view left, std::string_view right)
{
    const int folded = CompareFolded(left, right);
    return folded != 0 ? folded : left.compare(right);
}
