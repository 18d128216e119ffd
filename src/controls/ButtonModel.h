#pragma once

// Mouse buttons and the keys held with them, as the events tell them.
namespace MouseButton {
inline constexpr int Left = 1;
inline constexpr int Right = 2;
inline constexpr int Middle = 4;
}  // namespace MouseButton

// A flat button's state under the mouse.
class ButtonModel {
public:
    enum Look { Pressed = -1, Normal = 0, Hot = 1 };

    Look State() const { return m_look; }
    bool HasCapture() const { return m_hasCapture; }  // the button wants to hear of the mouse outside, too

    void Press(int button, bool isInside);
    void Move(bool isInside);
    bool Release(int button, bool isInside);  // whether that was a click
    void Cancel();                            // the mouse is taken away

private:
    void LetGo();

    Look m_look = Normal;
    bool m_isPressed = false;  // the left button went down inside
    bool m_hasCapture = false;
    int m_buttonsDown = 0;
};

// The border that a button of this size, in pixels, can have.
int FittingBorder(int border, int width, int height);
