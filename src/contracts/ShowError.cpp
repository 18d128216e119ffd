#include "contracts/ShowError.h"

BoxAnswer ShowError(MessageBoxes& boxes, std::string_view message, BoxStyle style, const SystemError& error)
{
    const std::string text = std::string(message) + "\r\n(Error " + std::to_string(error.Plain()) + " - " +
                             error.description + ")";
    return boxes.Show(text, style, std::string(kProgramTitle));
}
