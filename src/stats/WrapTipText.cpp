#include "stats/WrapTipText.h"

#include <cstddef>
#include <vector>

namespace {

constexpr std::size_t kWidth = 50;

using Characters = std::vector<std::string_view>;

Characters Split(std::string_view text)
{
    Characters characters;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin + 1;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
        characters.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return characters;
}

// Positions count from 1 from here on; 0 says that there is none.
bool IsBlank(const Characters& text, std::size_t position)
{
    return text[position - 1] == " ";
}

std::size_t BlankUpTo(const Characters& text, std::size_t position)
{
    while (position > 0 && !IsBlank(text, position)) --position;
    return position;
}

std::size_t BlankFrom(const Characters& text, std::size_t position)
{
    while (position <= text.size() && !IsBlank(text, position)) ++position;
    return position <= text.size() ? position : 0;
}

std::ptrdiff_t HalfToEven(std::ptrdiff_t value)
{
    const auto half = value / 2;
    return value > 0 && value % 2 != 0 && half % 2 != 0 ? half + 1 : half;
}

// The word at the limit goes down when less than half of it fits.
bool GoesDown(std::size_t position, std::size_t before, std::size_t after)
{
    const auto fits = static_cast<std::ptrdiff_t>(position - before) - 1;
    return fits < HalfToEven(static_cast<std::ptrdiff_t>(after - before) - 2);
}

bool IsBreak(const Characters& text, std::size_t position)
{
    return position > 0 && position < text.size() && text[position - 1] == "\r" && text[position] == "\n";
}

}  // namespace

std::string WrapTipText(std::string_view text)
{
    auto characters = Split(text);
    std::size_t count = 0;
    for (std::size_t position = 0; position < characters.size(); ++position) {
        if (count == kWidth) {
            count = 0;
            const auto after = BlankFrom(characters, position);
            if (after == 0) break;
            const auto before = BlankUpTo(characters, position);
            if (before != 0) {
                const auto blank = GoesDown(position, before, after) ? before : after;
                const auto place = characters.begin() + static_cast<std::ptrdiff_t>(blank);
                characters.insert(place, {"\r", "\n"});
            }
        }
        ++count;
        if (IsBreak(characters, position)) count = 0;
    }
    std::string wrapped;
    for (const auto character : characters) wrapped += character;
    return wrapped;
}
