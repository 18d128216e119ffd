#pragma once

#include "base/SystemError.h"

#include <string_view>

namespace zentrel::Log {

// One line on stderr for one event, written in one piece: "zentreld: info: ...".
void Info(std::string_view text);
void Warning(std::string_view text);
void Error(std::string_view text);

// "<text>: <description> (error N)"
void Error(std::string_view text, const SystemError& error);

}  // namespace zentrel::Log
