#pragma once

#include "base/Result.h"

#include <cstdint>
#include <filesystem>

// Fills an existing service's data folder with one site of `urls` cached URLs in folders of a hundred, with
// the records that the service itself would write. The folder's size is about 250 bytes a URL.
Done MakeDataset(const std::filesystem::path& dataFolder, std::uint32_t urls);
