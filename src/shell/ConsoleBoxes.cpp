#include "shell/ConsoleBoxes.h"

#include "shell/BoxStyles.h"
#include "zentrel/Printable.h"

#include <ostream>

BoxAnswer ConsoleBoxes::Show(const std::string& text, BoxStyle style, const std::string& title)
{
    std::string line = text;
    for (auto end = line.find("\r\n"); end != std::string::npos; end = line.find("\r\n", end))
        line.replace(end, 2, " ");
    m_out << zentrel::Printable(title) << ": " << zentrel::Printable(line) << '\n';
    return Asks(style) ? BoxAnswer::No : BoxAnswer::Ok;
}
