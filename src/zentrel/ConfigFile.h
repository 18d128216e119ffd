#pragma once

#include "base/Result.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

// One "key = value" line of a configuration file.
struct ConfigEntry {
    int line = 0;
    std::string key;
    std::string value;  // without blanks at either end; may be empty
};

// "[kind]" or "[kind name]" and what follows it. What stands before the first heading is a section of
// its own, without kind and name.
struct ConfigSection {
    int line = 0;
    std::string kind;
    std::string name;
    std::vector<ConfigEntry> entries;
};

// Configuration files: UTF-8, one entry a line, "#" starts a comment line, blank lines do not matter.
// InvalidData: a line that is neither, named in the description ("line 12: ...").
Result<std::vector<ConfigSection>> ParseConfig(std::string_view text);

// The same from a file of at most 1 MiB. The system's code when it cannot be read.
Result<std::vector<ConfigSection>> ReadConfig(const std::filesystem::path& file);

}  // namespace zentrel
