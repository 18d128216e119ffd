#pragma once

#include "base/Result.h"
#include "zentrel/Admin.h"

#include <cstdint>
#include <vector>

// The numbers of a server's web sites, ascending. `server` must be connected.
Result<std::vector<std::int32_t>> OfferedSites(zentrel::ServerAdmin& server);
