#pragma once

#include <filesystem>

namespace zentrel {

// Where this user's server keeps its data when nothing else is said: $XDG_DATA_HOME/zentrel, or else
// ~/.local/share/zentrel. Empty when there is no home folder. Looks at the environment only.
std::filesystem::path DefaultDataFolder();

}  // namespace zentrel
