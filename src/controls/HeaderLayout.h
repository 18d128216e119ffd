#pragma once

// A rectangle in a control's units.
struct UnitRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const UnitRect&) const = default;
};

// What a header is laid out by: its size in units, the size of a pixel in units, its border in pixels.
struct HeaderSize {
    int width = 0;
    int height = 0;
    double pixelWidth = 1;
    double pixelHeight = 1;
    int border = 0;

    int Across(int pixels) const;  // in units
    int Down(int pixels) const;
};

// Where image and caption may stand.
UnitRect UsableArea(const HeaderSize& header, int closeWidth);

// Where the close button of this size goes; only its height may change.
UnitRect ClosePlace(const HeaderSize& header, int closeWidth, int closeHeight);

// One direction of an image in its room: what is wider is cropped to its middle, what is smaller stands in
// the middle or at the start.
struct ImageSpan {
    int place = 0;   // in the room
    int source = 0;  // in the image
    int length = 0;

    bool operator==(const ImageSpan&) const = default;
};
ImageSpan PlaceImage(int room, int image, bool isCentered);

// Where a caption goes beside an image that takes up imageWidth, 0 without one. The width is the room for
// it, the height that of the text.
UnitRect CaptionPlace(const HeaderSize& header, const UnitRect& usable, int imageWidth, int textHeight,
                      bool isCentered);
