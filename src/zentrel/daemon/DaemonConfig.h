#pragma once

#include "base/Result.h"
#include "zentrel/ServiceTable.h"
#include "zentrel/daemon/MetricsPlace.h"
#include "zentrel/remote/AdminOptions.h"

#include <chrono>
#include <filesystem>
#include <optional>

namespace zentrel {

// What the configuration file says.
struct DaemonConfig {
    std::filesystem::path data;                    // empty: not said
    std::optional<std::chrono::seconds> interval;  // between two rounds
    MetricsPlace metrics;
    bool hasLocal = false;  // says where the local socket is, or that there is none
    AdminOptions admin;     // the server's name is not said there
    ServiceTable::Setups services;
};

// Reads the file and the certificates that it names. Paths are relative to the file's folder. InvalidData
// with the file and the line for a key, section or value that is none; a listener that CheckListener does
// not like fails as there.
Result<DaemonConfig> ReadDaemonConfig(const std::filesystem::path& file);

}  // namespace zentrel
