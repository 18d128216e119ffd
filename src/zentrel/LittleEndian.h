#pragma once

#include <bit>
#include <cstddef>
#include <cstring>

namespace zentrel {

static_assert(std::endian::native == std::endian::little, "stored numbers are read in place");

// A number stored little-endian at any address.
template <class Number>
Number LoadLittle(const std::byte* from)
{
    Number value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <class Number>
void StoreLittle(std::byte* to, Number value)
{
    std::memcpy(to, &value, sizeof value);
}

}  // namespace zentrel
