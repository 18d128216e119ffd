#pragma once

#include "format/FormatLocale.h"

#include <initializer_list>
#include <string>

// A user who writes 1,5 and 31.12.1999 10.20.
inline FormatLocale CommaLocale()
{
    return {",", ".", "%d.%m.%Y"};
}

// The texts of several values in one line: "a | b | c".
template <class Value, class Function>
std::string Show(std::initializer_list<Value> values, Function text)
{
    std::string line;
    for (const auto& value : values) line += text(value) + " | ";
    return line.substr(0, line.rfind(" | "));
}
