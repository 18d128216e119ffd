#include "contracts/ShowError.h"

#include "base/FillIn.h"
#include "base/Translate.h"

BoxAnswer ShowError(MessageBoxes& boxes, std::string_view message, BoxStyle style, const SystemError& error)
{
    const auto reason =
        FillIn(Translate("ShowError", "(Error %1 - %2)"), {std::to_string(error.Plain()), error.description});
    const auto text = std::string(message) + "\r\n" + reason;
    return boxes.Show(text, style, std::string(kProgramTitle));
}
