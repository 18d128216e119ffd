#pragma once

#include "base/Result.h"

#include <algorithm>
#include <cstddef>
#include <span>

// Reads a whole block; where the source ends within it, the rest is zeros. Answers how many bytes are the
// source's, 0 at its end. readSome(span) -> Result<std::size_t>: reads at least one byte into the span, or
// none at the end.
template <class ReadSome>
Result<std::size_t> FillBlock(std::span<std::byte> block, ReadSome readSome)
{
    auto rest = block;
    while (!rest.empty()) {
        const Result<std::size_t> count = readSome(rest);
        if (!count) return count;
        if (*count == 0) break;
        rest = rest.subspan(std::min(*count, rest.size()));
    }
    std::fill(rest.begin(), rest.end(), std::byte{0});
    return block.size() - rest.size();
}
