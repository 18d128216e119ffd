#pragma once

#include <cstdint>

enum class EdgeStyle { Raised, Sunken, Flat };

// The OLE colours of one pixel line all around: left and top, right and bottom.
struct EdgeShade {
    std::uint32_t leftTop;
    std::uint32_t rightBottom;
};

// ring: 0 is the outermost of `width` lines. The light comes from the left top. A border of one line shows
// the strongest contrast; in a wider one the outer half is the outer edge, the rest the inner one.
constexpr EdgeShade EdgeColors(EdgeStyle style, int ring, int width)
{
    constexpr std::uint32_t kFrame = 0x80000006;
    constexpr std::uint32_t kHighlight = 0x80000014;
    constexpr std::uint32_t kLight = 0x80000016;
    constexpr std::uint32_t kShadow = 0x80000010;
    constexpr std::uint32_t kDarkShadow = 0x80000015;
    const bool isOuter = ring < width / 2;
    switch (style) {
    case EdgeStyle::Raised: return isOuter ? EdgeShade{kLight, kDarkShadow} : EdgeShade{kHighlight, kShadow};
    case EdgeStyle::Sunken:
        return isOuter || width == 1 ? EdgeShade{kShadow, kHighlight} : EdgeShade{kDarkShadow, kLight};
    case EdgeStyle::Flat: break;
    }
    return {kFrame, kFrame};
}
