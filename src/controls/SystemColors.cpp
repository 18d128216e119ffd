#include "controls/SystemColors.h"

#include <iterator>

namespace {

constexpr std::size_t kButtonFace = 15;
constexpr std::size_t kGrayText = 17;

// By index. Face and text of one kind stand on one background, so that they contrast in every palette.
constexpr QPalette::ColorRole kRoles[] = {
    QPalette::Mid,              //  0 scroll bar
    QPalette::Mid,              //  1 desktop
    QPalette::Highlight,        //  2 active title bar
    QPalette::Mid,              //  3 inactive title bar
    QPalette::Window,           //  4 menu
    QPalette::Base,             //  5 window background
    QPalette::Shadow,           //  6 window frame
    QPalette::WindowText,       //  7 menu text
    QPalette::Text,             //  8 window text
    QPalette::HighlightedText,  //  9 text of an active title bar
    QPalette::Button,           // 10 border of the active window
    QPalette::Button,           // 11 border of an inactive window
    QPalette::Mid,              // 12 application workspace
    QPalette::Highlight,        // 13 highlight
    QPalette::HighlightedText,  // 14 highlighted text
    QPalette::Button,           // 15 button face
    QPalette::Dark,             // 16 button shadow
    QPalette::WindowText,       // 17 grey text, from the disabled group
    QPalette::ButtonText,       // 18 button text
    QPalette::WindowText,       // 19 text of an inactive title bar
    QPalette::Light,            // 20 button highlight
    QPalette::Shadow,           // 21 dark shadow
    QPalette::Midlight,         // 22 button light
    QPalette::ToolTipText,      // 23 text of a tool tip
    QPalette::ToolTipBase,      // 24 tool tip
};

}  // namespace

QColor SystemColor(std::uint32_t oleColor, const QPalette& palette)
{
    if ((oleColor & OleColor::SystemBit) == 0) {
        const auto part = [oleColor](int shift) { return static_cast<int>((oleColor >> shift) & 0xFFU); };
        return {part(0), part(8), part(16)};
    }
    std::size_t index = oleColor & 0xFFU;
    if (index >= std::size(kRoles)) index = kButtonFace;
    if (index == kGrayText) return palette.color(QPalette::Disabled, kRoles[index]);
    return palette.color(kRoles[index]);
}
