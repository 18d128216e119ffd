#pragma once

#include <filesystem>

// The desktop's program that shows what this machine is made of: the first of a few known ones that stands in
// a folder of PATH. Empty when there is none.
std::filesystem::path SystemInformationProgram();
