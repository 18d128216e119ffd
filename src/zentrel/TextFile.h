#pragma once

#include "base/Result.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace zentrel {

// The bytes of a regular file: configuration, certificates. Every description names the file.
// InvalidData when it is longer than `most` bytes or no regular file, else the system's code.
Result<std::string> ReadTextFile(const std::filesystem::path& file, std::size_t most);

}  // namespace zentrel
