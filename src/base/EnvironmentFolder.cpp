#include "base/EnvironmentFolder.h"

#include <cstdlib>

std::filesystem::path EnvironmentFolder(const char* variable)
{
    const char* const value = std::getenv(variable);
    std::filesystem::path folder(value == nullptr ? "" : value);
    return folder.is_absolute() ? folder : std::filesystem::path{};
}
