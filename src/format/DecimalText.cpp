#include "format/DecimalText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

std::string_view WordFor(double value)
{
    if (std::isnan(value)) return "NaN";
    return std::isinf(value) ? "Infinity" : "";
}

}  // namespace

DecimalText::DecimalText(double value) : m_negative(value < 0), m_word(WordFor(value))
{
    if (!IsFinite()) return;
    // Every value that a text of 15 digits stands for gets that text back when it is rounded to 15 digits.
    // Six digits more are asked for, so that a half is seen as a half and goes away from zero.
    static constexpr int kSignificant = 15;
    std::array<char, 40> text;
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific, 20).ptr;
    Read(text.data(), end);
    Round(kSignificant - m_point);
}

DecimalText::DecimalText(float value) : m_negative(value < 0), m_word(WordFor(value))
{
    if (!IsFinite()) return;
    std::array<char, 40> text;
    Read(text.data(), std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific).ptr);
}

DecimalText::DecimalText(std::int64_t value) : m_negative(value < 0)
{
    std::array<char, 24> text;
    Read(text.data(), std::to_chars(text.begin(), text.end(), value).ptr);
}

void DecimalText::Read(const char* first, const char* last)
{
    if (first != last && *first == '-') ++first;
    const char* const mantissaEnd = std::find(first, last, 'e');
    const char* const point = std::find(first, mantissaEnd, '.');
    m_point = static_cast<int>(point - first);
    for (; first != mantissaEnd; ++first)
        if (*first != '.') m_digits[static_cast<std::size_t>(m_count++)] = *first;
    if (mantissaEnd != last) {
        int exponent = 0;
        const bool plus = mantissaEnd[1] == '+';
        std::from_chars(mantissaEnd + (plus ? 2 : 1), last, exponent);
        m_point += exponent;
    }
    DropTrailingZeros();
}

void DecimalText::DropTrailingZeros()
{
    while (m_count > 0 && m_digits[static_cast<std::size_t>(m_count - 1)] == '0') --m_count;
    if (m_count > 0) return;
    m_point = 0;
    m_negative = false;
}

DecimalText& DecimalText::MultiplyByPowerOfTen(int power)
{
    if (m_count > 0) m_point += power;
    return *this;
}

DecimalText& DecimalText::Round(int decimals)
{
    const int keep = m_point + decimals;
    if (m_count == 0 || keep >= m_count) return *this;
    const bool up = keep >= 0 && m_digits[static_cast<std::size_t>(keep)] >= '5';
    m_count = std::max(keep, 0);
    if (up) {
        while (m_count > 0 && m_digits[static_cast<std::size_t>(m_count - 1)] == '9') --m_count;
        if (m_count > 0) {
            ++m_digits[static_cast<std::size_t>(m_count - 1)];
        } else {
            m_digits[0] = '1';
            m_count = 1;
            ++m_point;
        }
    }
    DropTrailingZeros();
    return *this;
}

int DecimalText::IntegerDigits() const
{
    return std::max(m_point, 0);
}

int DecimalText::Decimals() const
{
    return std::max(m_count - m_point, 0);
}

char DecimalText::Digit(int power) const
{
    const int index = m_point - 1 - power;
    return index >= 0 && index < m_count ? m_digits[static_cast<std::size_t>(index)] : '0';
}

std::string DecimalText::Text(std::string_view decimalSeparator) const
{
    std::string out;
    if (m_negative) out += '-';
    if (!IsFinite()) return out.append(m_word);
    for (int power = std::max(IntegerDigits(), 1) - 1; power >= 0; --power) out += Digit(power);
    if (Decimals() > 0) out += decimalSeparator;
    for (int place = 1; place <= Decimals(); ++place) out += Digit(-place);
    return out;
}
