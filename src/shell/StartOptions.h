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
    std::optional<std::string> server;               // empty: this machine
    std::optional<std::vector<std::int32_t>> sites;  // empty: all that the server has
    std::optional<std::filesystem::path> picture;    // draw the window with the tree expanded, then end
};
