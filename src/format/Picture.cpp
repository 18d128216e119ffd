#include "format/Picture.h"

#include <algorithm>
#include <utility>

namespace {

enum class Mark { Zero, Optional, Point, Percent, Literal, End };

struct Token {
    Mark mark = Mark::End;
    std::string_view literal;
};

class PictureReader {
public:
    explicit PictureReader(std::string_view picture) : m_rest(picture) {}

    Token Next()
    {
        while (!m_rest.empty() && m_rest.front() == ',') m_rest.remove_prefix(1);
        if (m_rest.empty()) return {};
        switch (m_rest.front()) {
        case '0': return {Mark::Zero, Take(1)};
        case '#': return {Mark::Optional, Take(1)};
        case '%': return {Mark::Percent, Take(1)};
        case '"': return Quoted();
        case '\\':
            if (m_rest.size() > 1) m_rest.remove_prefix(1);
            return {Mark::Literal, Take(1)};
        case '.':
            if (!m_pointSeen) {
                m_pointSeen = true;
                return {Mark::Point, Take(1)};
            }
            [[fallthrough]];
        default: return {Mark::Literal, Take(1)};
        }
    }

private:
    std::string_view Take(std::size_t length)
    {
        const auto taken = m_rest.substr(0, length);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    Token Quoted()  // a quote that nothing closes reaches to the end
    {
        Take(1);
        const auto text = Take(m_rest.find('"'));
        Take(1);
        return {Mark::Literal, text};
    }

    std::string_view m_rest;
    bool m_pointSeen = false;
};

// What a picture asks for.
struct Places {
    int integer = 0;       // places before the point
    int leastInteger = 0;  // of them, those from the first 0 on
    int decimal = 0;       // places behind the point
    int leastDecimal = 0;  // of them, those up to the last 0
    int percents = 0;
};

Places Count(std::string_view picture)
{
    Places places;
    PictureReader reader(picture);
    bool behindPoint = false;
    for (Token token = reader.Next(); token.mark != Mark::End; token = reader.Next()) {
        const bool zero = token.mark == Mark::Zero;
        if (token.mark == Mark::Point) behindPoint = true;
        if (token.mark == Mark::Percent) ++places.percents;
        if (!zero && token.mark != Mark::Optional) continue;
        if (behindPoint) {
            ++places.decimal;
            if (zero) places.leastDecimal = places.decimal;
        } else {
            ++places.integer;
            if (zero || places.leastInteger > 0) ++places.leastInteger;
        }
    }
    return places;
}

class PictureWriter {
public:
    PictureWriter(const DecimalText& number, const Places& places, const FormatLocale& locale)
        : m_number(number),
          m_locale(locale),
          m_integerPlaces(places.integer),
          m_integers(std::max(number.IntegerDigits(), places.leastInteger)),
          m_decimals(std::max(number.Decimals(), places.leastDecimal)),
          m_keepPoint(places.decimal == 0)
    {
    }

    std::string Write(std::string_view picture)
    {
        if (m_number.IsNegative()) m_out += '-';
        PictureReader reader(picture);
        for (Token token = reader.Next(); token.mark != Mark::End; token = reader.Next()) {
            switch (token.mark) {
            case Mark::Zero:
            case Mark::Optional: WritePlace(); break;
            case Mark::Point: WritePoint(); break;
            default: m_out += token.literal;
            }
        }
        return std::move(m_out);
    }

private:
    void WritePlace()
    {
        if (m_behindPoint) {
            if (m_writtenDecimals < m_decimals) m_out += m_number.Digit(-++m_writtenDecimals);
        } else {
            WriteIntegersDownTo(--m_integerPlaces);
        }
    }

    void WritePoint()
    {
        WriteIntegersDownTo(0);  // all of them, when the picture has no place for them
        m_behindPoint = true;
        if (m_keepPoint || m_decimals > 0) m_out += m_locale.decimalSeparator;
    }

    void WriteIntegersDownTo(int left)
    {
        while (m_integers > left) m_out += m_number.Digit(--m_integers);
    }

    const DecimalText& m_number;
    const FormatLocale& m_locale;
    int m_integerPlaces;  // places before the point still to come
    int m_integers;       // digits before the point still to be written
    const int m_decimals;
    const bool m_keepPoint;
    int m_writtenDecimals = 0;
    bool m_behindPoint = false;
    std::string m_out;
};

}  // namespace

std::string FormatPicture(DecimalText number, std::string_view picture, const FormatLocale& locale)
{
    const Places places = Count(picture);
    if (!number.IsFinite() || places.integer + places.decimal == 0)
        return number.Text(locale.decimalSeparator);
    number.MultiplyByPowerOfTen(2 * places.percents).Round(places.decimal);
    return PictureWriter(number, places, locale).Write(picture);
}
