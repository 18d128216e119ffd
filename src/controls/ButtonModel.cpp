#include "controls/ButtonModel.h"

#include "controls/WholeNumber.h"

void ButtonModel::Press(int button, bool isInside)
{
    m_buttonsDown |= button;
    if (button != MouseButton::Left || !isInside) return;
    m_isPressed = true;
    m_look = Pressed;
}

void ButtonModel::Move(bool isInside)
{
    if (!isInside) {
        m_look = Normal;
        LetGo();
        return;
    }
    m_look = m_isPressed ? Pressed : Hot;
    if (m_hasCapture) return;
    m_hasCapture = true;
    m_buttonsDown = 0;
}

bool ButtonModel::Release(int button, bool isInside)
{
    m_buttonsDown &= ~button;
    const bool isClick = isInside && m_isPressed && button == MouseButton::Left;
    if (button == MouseButton::Left) m_isPressed = false;
    if (isInside)
        m_look = Hot;
    else
        LetGo();
    return isClick;
}

void ButtonModel::Cancel()
{
    *this = {};
}

void ButtonModel::LetGo()
{
    if (m_buttonsDown == 0) m_hasCapture = false;
}

int FittingBorder(int border, int width, int height)
{
    int fitting = border < 0 ? 0 : border;
    for (const int side : {width, height})
        if (fitting > side / 2.0) fitting = WholeNumber(side / 2.0);
    return fitting;
}
