#pragma once

#include <string>

// As in "Version 1.0.012": a revision has at least three digits, but that 0 is written as "00".
std::string VersionText(int major, int minor, int revision);
