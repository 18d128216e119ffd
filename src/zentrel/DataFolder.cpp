#include "zentrel/DataFolder.h"

#include <cstdlib>

namespace zentrel {

namespace {

// A folder named by the environment; one that is not absolute counts as not set.
std::filesystem::path FolderFrom(const char* variable)
{
    const char* const value = std::getenv(variable);
    std::filesystem::path folder(value == nullptr ? "" : value);
    return folder.is_absolute() ? folder : std::filesystem::path{};
}

}  // namespace

std::filesystem::path DefaultDataFolder()
{
    if (const auto data = FolderFrom("XDG_DATA_HOME"); !data.empty()) return data / "zentrel";
    const auto home = FolderFrom("HOME");
    return home.empty() ? home : home / ".local/share/zentrel";
}

}  // namespace zentrel
