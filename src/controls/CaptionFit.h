#pragma once

#include <cstddef>
#include <functional>

// How much of a caption is drawn.
struct CaptionCut {
    enum Kind { Whole, Nothing, Prefix };
    Kind kind = Whole;
    std::size_t count = 0;  // Prefix: so many characters, then "..."
};

// What there is to fit, widths in one unit, whole.
struct CaptionMeasures {
    std::size_t count = 0;  // of characters
    int width = 0;          // of all of them
    int dots = 0;           // of "..."
    int tolerance = 0;      // of "W.", as much as may stay unused
};

// Fits a caption into `room`. widthOfPrefix: of the first n characters followed by "...". Ends for every
// measure after at most count + 1 calls: where a character is wider than the tolerance, the longest prefix
// found that fits stands.
CaptionCut FitCaption(const CaptionMeasures& caption, int room,
                      const std::function<int(std::size_t)>& widthOfPrefix);
