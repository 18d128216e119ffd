#pragma once

#include "base/SystemError.h"
#include "contracts/MessageBoxes.h"

#include <string_view>

// The program's title: message boxes about failed operations carry it.
inline constexpr std::string_view kProgramTitle = "Zentrel Quillet";

// The message, then on a line of its own the error's plain code and its description.
BoxAnswer ShowError(MessageBoxes& boxes, std::string_view message, BoxStyle style, const SystemError& error);
