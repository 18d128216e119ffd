#pragma once

#include "base/Result.h"

#include <filesystem>

// Writes a small web site of the demonstration's own into a folder: pages, styles, scripts, pictures, data.
Done WriteDemoPages(const std::filesystem::path& folder);
