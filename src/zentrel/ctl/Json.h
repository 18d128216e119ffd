#pragma once

#include "zentrel/Printable.h"

#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace zentrel {

// Writes JSON as it goes, indented by two spaces a level. The caller sees to it that what is opened is
// closed and that the members of objects, and only they, have a key.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out) : m_out(out) {}

    JsonWriter& BeginObject() { return Open('{'); }
    JsonWriter& EndObject() { return Close('}'); }
    JsonWriter& BeginArray() { return Open('['); }
    JsonWriter& EndArray() { return Close(']'); }

    JsonWriter& Key(std::string_view name)
    {
        Separate();
        Quote(name);
        m_out << ": ";
        m_afterKey = true;
        return *this;
    }

    // Any bytes: those that are not UTF-8 become U+FFFD, controls are escaped.
    JsonWriter& Text(std::string_view text)
    {
        Separate();
        Quote(text);
        return *this;
    }

    template <std::integral T>
    JsonWriter& Number(T value)
    {
        Separate();
        m_out << +value;
        return *this;
    }

    JsonWriter& Null()
    {
        Separate();
        m_out << "null";
        return *this;
    }

    // As short as it can be without loss, without an exponent, whatever the locale; null for NaN and
    // infinity.
    JsonWriter& Number(double value)
    {
        if (!std::isfinite(value)) return Null();
        Separate();
        char digits[512];
        const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr;
        m_out.write(digits, end - digits);
        return *this;
    }

private:
    JsonWriter& Open(char bracket)
    {
        Separate();
        m_out << bracket;
        ++m_depth;
        m_isFirst = true;
        return *this;
    }

    JsonWriter& Close(char bracket)
    {
        --m_depth;
        if (!m_isFirst) BreakLine();
        m_out << bracket;
        m_isFirst = false;
        if (m_depth == 0) m_out << '\n';
        return *this;
    }

    // What stands between the value before and the one that comes.
    void Separate()
    {
        if (!m_afterKey && m_depth > 0) {
            if (!m_isFirst) m_out << ',';
            BreakLine();
        }
        m_afterKey = false;
        m_isFirst = false;
    }

    void BreakLine() { m_out << '\n' << std::string(2 * m_depth, ' '); }

    void Quote(std::string_view text)
    {
        m_out << '"';
        while (!text.empty()) {
            const auto piece = TakeCharacter(text);
            if (piece.kind == TextPiece::Kind::Broken) {
                m_out << "\xEF\xBF\xBD";
            } else if (piece.kind == TextPiece::Kind::Control) {
                Escape(piece.bytes);
            } else if (piece.bytes == "\"" || piece.bytes == "\\") {
                m_out << '\\' << piece.bytes;
            } else {
                m_out << piece.bytes;
            }
        }
        m_out << '"';
    }

    // Controls have at most three bytes.
    void Escape(std::string_view bytes)
    {
        constexpr std::string_view kDigits = "0123456789abcdef";
        unsigned value = static_cast<unsigned char>(bytes.front());
        if (bytes.size() > 1) value &= bytes.size() == 2 ? 0x1FU : 0x0FU;
        for (const char c : bytes.substr(1)) value = (value << 6) | (static_cast<unsigned char>(c) & 0x3FU);
        m_out << "\\u";
        for (const unsigned shift : {12U, 8U, 4U, 0U}) m_out << kDigits[(value >> shift) & 0xFU];
    }

    std::ostream& m_out;
    std::size_t m_depth = 0;
    bool m_isFirst = true;
    bool m_afterKey = false;
};

}  // namespace zentrel
