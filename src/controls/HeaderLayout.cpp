#include "controls/HeaderLayout.h"

#include "controls/WholeNumber.h"

#include <algorithm>

namespace {

constexpr int kLeastCloseHeight = 225;
constexpr int kCaptionGap = 3;  // pixels on each side of the caption

}  // namespace

int HeaderSize::Across(int pixels) const
{
    return WholeNumber(pixels * pixelWidth);
}

int HeaderSize::Down(int pixels) const
{
    return WholeNumber(pixels * pixelHeight);
}

UnitRect UsableArea(const HeaderSize& header, int closeWidth)
{
    const int left = header.Across(header.border + 1);
    const int top = header.Down(header.border);
    return {left, top, std::max(0, header.width - left - header.Across(header.border + 2) - closeWidth),
            std::max(0, header.height - top - header.Down(header.border))};
}

UnitRect ClosePlace(const HeaderSize& header, int closeWidth, int closeHeight)
{
    const int top = header.Down(header.border);
    const int room = std::max(0, header.height - header.Down(header.border) - top);
    return {header.width - header.Across(header.border + 1) - closeWidth, top, closeWidth,
            std::min(std::max(closeHeight, kLeastCloseHeight), room)};
}

ImageSpan PlaceImage(int room, int image, bool isCentered)
{
    if (image > room) return {0, (image - room) / 2, std::max(0, room)};
    return {isCentered ? (room - image) / 2 : 0, 0, image};
}

UnitRect CaptionPlace(const HeaderSize& header, const UnitRect& usable, int imageWidth, int textHeight,
                      bool isCentered)
{
    const int down = isCentered ? WholeNumber((usable.height - textHeight) / 2.0) : 0;
    return {usable.left + imageWidth + header.Across(kCaptionGap), usable.top + down,
            usable.width - imageWidth - header.Across(2 * kCaptionGap), textHeight};
}
