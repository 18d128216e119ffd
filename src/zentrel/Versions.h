#pragma once

#include "base/Result.h"
#include "zentrel/CacheFolder.h"
#include "zentrel/EntryStore.h"
#include "zentrel/RecordLayout.h"

#include <optional>
#include <string>

namespace zentrel {

// One compressed version of a URL: what is kept, found and counted.
struct VersionKey {
    std::string path;         // the URL's key, "LM/W3SVC/1/Root/img/a.svg"; checked
    std::uint64_t query = 0;  // hash of the query string, 0 = none
    Encoding encoding = Encoding::Gzip;
};

// What tells one state of a source file from the next.
struct FileStamp {
    std::uint64_t ticks = 0;  // date of its last change, see RecordLayout.h
    std::uint64_t size = 0;   // bytes

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

// A version that was just made.
struct NewVersion {
    Bytes body;  // compressed
    FileStamp source;
    int level = 0;
    std::uint64_t cpuTicks = 0;  // processor time that the compression took, in 100 nanoseconds
};

// The cached versions with their records and statistics: a URL's key holds its cache id, the record of
// the URL without a query and the statistics of all its requests; each query has a child key with a
// record and statistics of its own. Not for several threads at once.
class Versions {
public:
    Versions(EntryStore& entries, const CacheFolder& folder) : m_entries(entries), m_folder(folder) {}

    struct Good {
        CachedFile file;
        std::uint64_t size = 0;  // what the file must have; whether it does is not looked at
    };
    // A version that still stands for this state of its source: made from it, and not expired.
    Result<std::optional<Good>> FindGood(const VersionKey& key, const FileStamp& source) const;

    // Puts the cached file in its place and writes the records; a version that it replaces counts as an
    // overwrite. body: holds what version.body does.
    Done Keep(const VersionKey& key, const NewVersion& version, StagedFile body);

    // Counts a request for a URL that has an entry; nothing happens when it has none.
    Done CountRequest(const VersionKey& key, bool fromCache);

private:
    EntryStore& m_entries;
    const CacheFolder& m_folder;
};

}  // namespace zentrel
