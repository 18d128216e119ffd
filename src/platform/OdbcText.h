#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <locale.h>

// Texts on their way to and from drivers.
namespace odbc {

// While it lives, its thread's character set is UTF-8 and its numbers have a point: the driver manager and
// the drivers go by the locale where they convert, whatever that of the user is.
class PlainLocale {
public:
    PlainLocale();
    ~PlainLocale();
    PlainLocale(const PlainLocale&) = delete;
    PlainLocale& operator=(const PlainLocale&) = delete;

private:
    locale_t m_before;
};

// Each byte that is not UTF-8, and each zero byte, replaced by U+FFFD.
std::string CleanText(std::string_view text);
bool IsClean(std::string_view text);

// One line, of `most` bytes at the longest: clean, white space and other control characters as single blanks.
std::string CleanLine(std::string_view text, std::size_t most);

// The text as it was before a driver manager that took its bytes for Latin letters made UTF-8 of them again.
// Any other text stays as it is.
std::string UndoTwiceEncoded(std::string text);

// The message with "***" for the secret, for showing. A very short one is cut out where it stands alone:
// within a word it is there by chance, and to cut it out there would tell it.
std::string WithoutSecret(std::string message, std::string_view secret);

}  // namespace odbc
