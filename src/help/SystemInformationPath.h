#pragma once

#include <filesystem>

class RegistryStore;

// The program that shows what this machine is made of, as the registry of the machine names it: by its path,
// or by the folder of the shared tools when the program is there. Empty when there is none.
std::filesystem::path SystemInformationPath(RegistryStore& registry);
