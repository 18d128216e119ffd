#include "controls/CaptionFit.h"

#include <algorithm>
#include <cmath>

CaptionCut FitCaption(const CaptionMeasures& caption, int room,
                      const std::function<int(std::size_t)>& widthOfPrefix)
{
    if (caption.width <= room) return {CaptionCut::Whole, caption.count};
    if (room <= 0 || caption.dots > room) return {CaptionCut::Nothing, 0};

    const double guess = std::nearbyint(static_cast<double>(caption.count) * room / caption.width);
    std::size_t n = std::min(caption.count, static_cast<std::size_t>(guess));
    bool isNextTooWide = n == caption.count;
    for (bool isLastFitting = false;;) {
        const int unused = room - widthOfPrefix(n);
        if (unused >= 0) {
            if (unused <= caption.tolerance || isNextTooWide) return {CaptionCut::Prefix, n};
            isLastFitting = true;
            isNextTooWide = ++n == caption.count;
        } else {
            if (isLastFitting) return {CaptionCut::Prefix, n - 1};
            if (n == 0) return {CaptionCut::Nothing, 0};
            isNextTooWide = true;
            --n;
        }
    }
}
