#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// What the command line asks for.
struct StartOptions {
    bool demo = false;                               // with a server of its own in a temporary folder
    std::filesystem::path dataFolder;                // of this machine's server; empty: the user's
    std::filesystem::path settingsFile;              // the user's hive; empty: in the configuration folder
    std::optional<std::string> server;               // empty: the one that the settings lead to
    std::optional<std::vector<std::int32_t>> sites;  // empty: all that the server has
    bool choosesSites = false;                       // the sites were named, be it as all
    std::optional<std::filesystem::path> picture;    // draw the window with the tree expanded, then end
};
