#pragma once

#include "platform/Hive.h"

#include <filesystem>
#include <memory>
#include <string>

// Opens the file, makes a missing one, and puts another in the place of one that is unusable; see
// RegistryStore::Open. Never null. `trouble` gets one sentence when the file could not be used as it is.
std::unique_ptr<Hive> OpenUserHive(const std::filesystem::path& file, std::string& trouble);

// Opens the file for reading only. An empty hive when it is missing or unusable, which is trouble in the
// second case only.
std::unique_ptr<Hive> OpenMachineHive(const std::filesystem::path& file, std::string& trouble);
