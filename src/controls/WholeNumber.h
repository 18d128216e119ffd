#pragma once

#include <algorithm>
#include <cmath>

// The nearest whole number, ties to even. What is no number becomes 0; what is too large stays small enough
// that sums and differences of two do not overflow.
inline int WholeNumber(double value)
{
    constexpr double kMost = 1'000'000'000;
    if (std::isnan(value)) return 0;
    return static_cast<int>(std::nearbyint(std::clamp(value, -kMost, kMost)));
}
