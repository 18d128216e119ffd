#include "zentrel/DataFolder.h"

#include "base/EnvironmentFolder.h"

namespace zentrel {

std::filesystem::path DefaultDataFolder()
{
    if (const auto data = EnvironmentFolder("XDG_DATA_HOME"); !data.empty()) return data / "zentrel";
    const auto home = EnvironmentFolder("HOME");
    return home.empty() ? home : home / ".local/share/zentrel";
}

}  // namespace zentrel
