#pragma once

#include "server/ReadSites.h"

#include <cstdint>
#include <vector>

// The numbers of a server's web sites, ascending; as many as its list for the user would have. `server` must
// be connected.
Result<std::vector<std::int32_t>> OfferedSites(zentrel::ServerAdmin& server,
                                               const SiteReadingLimits& limits = {});
