#pragma once

#include <cmath>
#include <cstdint>

// Twips: lengths as they are kept and set, 1440 to the inch whatever the screen. `dpi` is the screen's
// logical resolution in pixels an inch, above 0.
inline constexpr double kTwipsPerInch = 1440.0;

inline std::int64_t TwipsFromPixels(double pixels, double dpi)
{
    return std::llround(pixels * kTwipsPerInch / dpi);
}

inline double PixelsFromTwips(double twips, double dpi)
{
    return twips * dpi / kTwipsPerInch;
}
