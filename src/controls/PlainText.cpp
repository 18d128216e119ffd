#include "controls/PlainText.h"

#include <QList>

#include <algorithm>

namespace {

constexpr qsizetype kMostCharacters = 1000;
constexpr std::size_t kMostBytes = 4 * kMostCharacters + 4;  // the rest is not shown, whatever it is
constexpr int kMostLines = 40;                               // a box of more might not fit on a screen
constexpr char16_t kEllipsis = u'\u2026';

bool IsPlainAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// Marks that reorder what stands around them, and separators that break a line.
bool IsTreacherous(char32_t c)
{
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

char32_t Harmless(char32_t c)
{
    if (c < 0x20) return 0x2400 + c;
    if (c == 0x7F) return 0x2421;
    if ((c > 0x7F && c < 0xA0) || IsTreacherous(c)) return QChar::ReplacementCharacter;
    return c;
}

}  // namespace

QString PlainText(std::string_view text)
{
    const auto bytes = text.substr(0, kMostBytes);
    if (bytes.size() <= kMostCharacters && IsPlainAscii(bytes))
        return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));

    const auto decoded = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).toUcs4();
    const auto shown = std::min<qsizetype>(decoded.size(), kMostCharacters);
    QString plain;
    plain.reserve(shown + 1);
    for (qsizetype i = 0; i < shown; ++i) plain += QStringView(QChar::fromUcs4(Harmless(decoded[i])));
    if (decoded.size() > shown) plain += kEllipsis;
    return plain;
}

QString PlainLines(std::string_view text)
{
    QString plain;
    std::size_t begin = 0;
    for (int left = kMostLines; left > 0; --left) {
        const auto end = text.find('\n', begin);
        auto line = text.substr(begin, end - begin);
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        plain += PlainText(line);
        if (end == std::string_view::npos) return plain;
        plain += u'\n';
        begin = end + 1;
    }
    return plain + kEllipsis;
}
