#pragma once

#include "base/Result.h"
#include "zentrel/Service.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zentrel {

struct ExpiryResult {
    std::uint64_t entries = 0;   // looked at
    std::uint64_t expired = 0;   // removed: each of their cached versions had expired
    std::uint64_t vanished = 0;  // removed: their source file is gone
    std::uint64_t failed = 0;    // should have been removed and could not be
    std::optional<SystemError> firstFailure;
    std::vector<std::string> missingRoots;  // document roots and targets that are not there
};

// Removes the entries that are of no more use. An entry whose site or virtual directory has lost its whole
// folder stays until it expires: the folder may just not be mounted. The store is read in short
// transactions, so that a writer's freed pages can be used again.
// now: ticks, see TicksNow(). stop: asked now and then; answering true ends the work early.
Result<ExpiryResult> RemoveStaleEntries(Service& service, std::uint64_t now,
                                        const std::function<bool()>& stop);

}  // namespace zentrel
