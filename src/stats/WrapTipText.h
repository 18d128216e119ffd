#pragma once

#include <string>
#include <string_view>

// Breaks a text of UTF-8 into lines of about 50 characters. Each time that 50 were counted, a line break
// ("\r\n") goes behind the blank before or the blank after, whichever leaves the better line; the blank
// stays. Breaks that the text holds restart the count. Behind the last blank nothing is broken. Applied to
// its own result it would break again, so it is applied once.
std::string WrapTipText(std::string_view text);
