#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// A number as decimal digits, the form in which it is scaled, rounded and printed, so that no binary
// fraction ever shows. Converts from the numbers that the program holds:
//   double   the shortest text that gives the value back, at most 15 significant digits
//   float    the shortest text that gives the float back, at most 9
//   integers all digits
// Infinity and NaN are carried along and print as these words.
class DecimalText {
public:
    DecimalText(double value);
    DecimalText(float value);
    DecimalText(std::int64_t value);
    DecimalText(std::int32_t value) : DecimalText(std::int64_t{value}) {}

    DecimalText& MultiplyByPowerOfTen(int power);
    DecimalText& Round(int decimals);  // half away from zero; a result of 0 has no sign

    bool IsFinite() const { return m_word.empty(); }
    bool IsNegative() const { return m_negative; }
    int IntegerDigits() const;    // digits before the point, without leading zeros: 0 for 0.5
    int Decimals() const;         // digits behind the point, without trailing zeros
    char Digit(int power) const;  // the digit that counts 10^power: 0 units, 1 tens, -1 tenths

    // All digits, without an exponent, without grouping, with at least one digit before the separator.
    std::string Text(std::string_view decimalSeparator) const;

private:
    void Read(const char* first, const char* last);  // a text as std::to_chars writes it
    void DropTrailingZeros();

    // The value is 0.d1d2d3... times 10^m_point, d1 not being 0; no digits at all for 0.
    std::array<char, 24> m_digits{};
    int m_count = 0;
    int m_point = 0;
    bool m_negative = false;
    std::string_view m_word;  // what an infinite or undefined value is called
};
