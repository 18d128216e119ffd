#pragma once

#include "base/Result.h"
#include "zentrel/CacheFolder.h"
#include "zentrel/Metabase.h"

#include <filesystem>

namespace zentrel {

// Stands in the data folder while somebody changes it. Who finds it there when he begins knows that the
// one before him did not get to the end, and clears up.
class UncleanMark {
public:
    // Sets the mark; `wasThere` tells whether it stood already.
    static Result<UncleanMark> Set(const std::filesystem::path& folder, bool& wasThere);

    // Everything is in order. A mark that is not cleared stays, whatever happens.
    void Clear();

private:
    explicit UncleanMark(std::filesystem::path file) : m_file(std::move(file)) {}

    std::filesystem::path m_file;
};

// Brings store and cache folder into line after a writer was cut short: removes cached files that no
// record names, and records whose file is missing or has another size than they say. Needs about 16 bytes
// of memory an entry. False when a cached file without a record could not be removed.
Result<bool> Recover(Metabase& store, const CacheFolder& folder);

}  // namespace zentrel
