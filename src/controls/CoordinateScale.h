#pragma once

// The unit and origin of a drawing surface.
// Modes: 0 user-defined, 1 twips, 2 points, 3 pixels, 4 characters, 5 inches, 6 millimetres, 7 centimetres.
class CoordinateScale {
public:
    static constexpr int kUser = 0;
    static constexpr int kTwips = 1;
    static constexpr int kPixels = 3;
    static constexpr int kLastMode = 7;

    // What the surface stands on: its inner size in pixels, the screen's pixels an inch.
    void SetSurface(double pixelWidth, double pixelHeight, double dpiX, double dpiY);

    int Mode() const { return m_mode; }
    bool SetMode(int mode);  // false for a mode that there is not; leaving mode 0 forgets its rectangle

    // Makes the mode user-defined: the inner area becomes this rectangle. False when it has no size.
    bool SetUser(float left, float top, float width, float height);

    float Left() const { return m_mode == kUser ? m_left : 0; }
    float Top() const { return m_mode == kUser ? m_top : 0; }
    float Width() const;  // of the inner area, in the unit
    float Height() const;

    // Lengths; a mode that there is not counts as twips.
    double TwipsX(double length) const { return length * UnitX(m_mode); }
    double TwipsY(double length) const { return length * UnitY(m_mode); }
    double FromTwipsX(double twips) const { return twips / UnitX(m_mode); }
    double FromTwipsY(double twips) const { return twips / UnitY(m_mode); }
    double FromPixelsX(double pixels) const;
    double FromPixelsY(double pixels) const;
    float ScaleX(float length, int fromMode, int toMode) const;
    float ScaleY(float length, int fromMode, int toMode) const;

private:
    double UnitX(int mode) const;  // twips in one unit; below 0 where the axis runs backwards
    double UnitY(int mode) const;

    int m_mode = kTwips;
    float m_left = 0;
    float m_top = 0;
    float m_width = -1;
    float m_height = -1;
    double m_pixelWidth = 0;
    double m_pixelHeight = 0;
    double m_dpiX = 96;
    double m_dpiY = 96;
};
