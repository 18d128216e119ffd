#include "controls/MouseArgs.h"

#include "base/Twips.h"
#include "controls/ButtonModel.h"

#include <QPixmap>
#include <QWidget>

#include <iterator>

namespace {

constexpr int kIconPointer = 99;
constexpr Qt::CursorShape kShapes[] = {
    Qt::ArrowCursor,     Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,
    Qt::ArrowCursor,     Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor,
    Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,
    Qt::ForbiddenCursor, Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor,
};

}  // namespace

int ButtonBits(Qt::MouseButtons buttons)
{
    return (buttons.testFlag(Qt::LeftButton) ? MouseButton::Left : 0) |
           (buttons.testFlag(Qt::RightButton) ? MouseButton::Right : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? MouseButton::Middle : 0);
}

int ShiftBits(Qt::KeyboardModifiers keys)
{
    return (keys.testFlag(Qt::ShiftModifier) ? 1 : 0) | (keys.testFlag(Qt::ControlModifier) ? 2 : 0) |
           (keys.testFlag(Qt::AltModifier) ? 4 : 0);
}

MouseArgs ToMouseArgs(const QMouseEvent& event, const QWidget& control)
{
    const bool isMove = event.type() == QEvent::MouseMove;
    const auto twips = [](double pixels, int dpi) {
        return static_cast<float>(TwipsFromPixels(pixels, dpi));
    };
    return {ButtonBits(isMove ? event.buttons() : event.button()), ShiftBits(event.modifiers()),
            twips(event.position().x(), control.logicalDpiX()),
            twips(event.position().y(), control.logicalDpiY())};
}

void ShowPointer(QWidget& control, int pointer, const QPixmap& icon)
{
    if (pointer == kIconPointer && !icon.isNull())
        control.setCursor(QCursor(icon));
    else if (pointer > 0 && pointer < static_cast<int>(std::size(kShapes)))
        control.setCursor(kShapes[pointer]);
    else
        control.unsetCursor();
}
