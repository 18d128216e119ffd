#include "controls/CoordinateScale.h"

#include "base/Twips.h"

#include <cmath>

namespace {

constexpr double kCharacterWidth = 120;
constexpr double kCharacterHeight = 240;
constexpr double kMillimetre = kTwipsPerInch / 25.4;

double PlainUnit(int mode, double dpi, double character)
{
    switch (mode) {
    case 2: return 20;
    case CoordinateScale::kPixels: return kTwipsPerInch / dpi;
    case 4: return character;
    case 5: return kTwipsPerInch;
    case 6: return kMillimetre;
    case 7: return 10 * kMillimetre;
    default: return 1;
    }
}

// A surface without a size yet measures as if it had one pixel.
double UserUnit(double pixels, double dpi, float units)
{
    return (pixels > 0 ? pixels : 1) * kTwipsPerInch / dpi / units;
}

bool IsLength(float value)
{
    return std::isfinite(value) && value != 0;
}

}  // namespace

void CoordinateScale::SetSurface(double pixelWidth, double pixelHeight, double dpiX, double dpiY)
{
    m_pixelWidth = pixelWidth;
    m_pixelHeight = pixelHeight;
    m_dpiX = dpiX;
    m_dpiY = dpiY;
}

bool CoordinateScale::SetMode(int mode)
{
    if (mode < kUser || mode > kLastMode) return false;
    if (mode == kUser) return SetUser(Left(), Top(), Width(), Height());
    m_mode = mode;
    return true;
}

bool CoordinateScale::SetUser(float left, float top, float width, float height)
{
    if (!IsLength(width) || !IsLength(height) || !std::isfinite(left) || !std::isfinite(top)) return false;
    m_mode = kUser;
    m_left = left;
    m_top = top;
    m_width = width;
    m_height = height;
    return true;
}

float CoordinateScale::Width() const
{
    return m_mode == kUser ? m_width : static_cast<float>(FromPixelsX(m_pixelWidth));
}

float CoordinateScale::Height() const
{
    return m_mode == kUser ? m_height : static_cast<float>(FromPixelsY(m_pixelHeight));
}

double CoordinateScale::FromPixelsX(double pixels) const
{
    return FromTwipsX(pixels * kTwipsPerInch / m_dpiX);
}

double CoordinateScale::FromPixelsY(double pixels) const
{
    return FromTwipsY(pixels * kTwipsPerInch / m_dpiY);
}

float CoordinateScale::ScaleX(float length, int fromMode, int toMode) const
{
    return static_cast<float>(length * UnitX(fromMode) / UnitX(toMode));
}

float CoordinateScale::ScaleY(float length, int fromMode, int toMode) const
{
    return static_cast<float>(length * UnitY(fromMode) / UnitY(toMode));
}

double CoordinateScale::UnitX(int mode) const
{
    if (mode == kUser && m_width != 0) return UserUnit(m_pixelWidth, m_dpiX, m_width);
    return PlainUnit(mode, m_dpiX, kCharacterWidth);
}

double CoordinateScale::UnitY(int mode) const
{
    if (mode == kUser && m_height != 0) return UserUnit(m_pixelHeight, m_dpiY, m_height);
    return PlainUnit(mode, m_dpiY, kCharacterHeight);
}
