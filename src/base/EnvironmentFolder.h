#pragma once

#include <filesystem>

// A folder named by an environment variable; empty when that is not set or not absolute.
std::filesystem::path EnvironmentFolder(const char* variable);
