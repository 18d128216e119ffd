#pragma once

#include "base/Result.h"
#include "zentrel/Service.h"

#include <cstdint>
#include <functional>
#include <string>

namespace zentrel {

struct WarmOptions {
    std::uint32_t site = 0;
    std::string below = "/";               // only URLs below this path; virtual directories included
    std::uint64_t mostFiles = UINT64_MAX;  // stop after so many cached files
};

struct WarmResult {
    std::uint64_t cached = 0;  // files now in the cache
    std::uint64_t skipped =
        0;  // not compressible, too small, unreadable, or with a name that cannot be a URL
};

// Told of every file looked at, on the thread that warms; answering false ends the walk, once the files that
// are being worked on are done. total: files found by a walk ahead, so `done` ends beside it when files come
// and go meanwhile.
using WarmProgress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

// Walks a site's document root and virtual directories and caches what is compressible, in the site's
// encoding, on all processors and without counting requests. Folders that are links are not walked. The
// service is a writer.
// PathNotFound when the site, its document root or the folder `below` is not there; DiskFull ends it.
Result<WarmResult> Warm(Service& service, const WarmOptions& options, const WarmProgress& progress);

}  // namespace zentrel
