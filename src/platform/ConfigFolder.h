#pragma once

#include <filesystem>

// Where the user's configuration of Quillet belongs: quillet in $XDG_CONFIG_HOME, or in ~/.config. Empty when
// there is no home folder. It need not exist.
std::filesystem::path DefaultConfigFolder();
