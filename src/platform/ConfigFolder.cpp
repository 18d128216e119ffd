#include "platform/ConfigFolder.h"

#include "base/EnvironmentFolder.h"

std::filesystem::path DefaultConfigFolder()
{
    if (const auto config = EnvironmentFolder("XDG_CONFIG_HOME"); !config.empty()) return config / "quillet";
    const auto home = EnvironmentFolder("HOME");
    return home.empty() ? home : home / ".config/quillet";
}
