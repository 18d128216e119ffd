#include "shell/ClientHeights.h"

#include <cmath>

std::optional<int> SplitterHeight(const ClientHeights& heights)
{
    double left = std::round(heights.inner);
    for (const double taken : {heights.toolbar.value_or(0), heights.statusBar.value_or(0), heights.topStrip})
        left = std::round(left - taken);
    if (left < 0) return std::nullopt;
    return static_cast<int>(left);
}
