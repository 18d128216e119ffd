#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// What is summed up over cached URLs: of one of them, or of a file type, a site or the whole cache.
struct CacheFigures {
    std::int64_t count = 0;       // cached URLs
    double uncompressedSize = 0;  // bytes
    double compressedSize = 0;
    double servedCompressed = 0;  // bytes sent compressed
    double uncompEquivalent = 0;  // bytes that would have been sent uncompressed
    std::int64_t totalHits = 0;
    std::int64_t cacheHits = 0;
    std::int64_t overwrites = 0;
    double totalLife = 0;  // of the replaced versions together, in 100 nanoseconds
    double cpuTime = 0;    // of the compression, in 100 nanoseconds

    void Add(const CacheFigures& other);
    double Ratio() const;  // compressed by uncompressed; 0 where nothing is uncompressed
    double BandwidthSavings() const { return uncompEquivalent - servedCompressed; }
};

struct SnapshotEntry {
    std::int32_t site = 0;     // its number
    std::string path;          // URL path below the site's root, begins with "/"; any bytes a server sent
    std::string queryHash;     // of a query-string variant; empty = none
    std::string type;          // file type in lower case, without the dot
    std::string physicalPath;  // on the server, with backslashes; empty when it is not known
    std::int32_t level = 0;    // compression level
    std::int32_t cacheId = 0;
    DateTime cached, expires, modified;  // 0 = none
    CacheFigures figures;                // count is 1
};

struct SnapshotSite {
    std::int32_t number = 0;
    std::string name;  // as the tree shows it
    CacheFigures figures;
};

struct SnapshotType {
    std::string type;  // as the list shows it
    CacheFigures figures;
};

struct SnapshotCounter {
    std::string name;
    double value = 0;  // a percentage is 37.5
};

// The last scan of a server's cache as reports and exports read it. It stands still while it is read, also
// by another thread.
class CacheSnapshot {
public:
    virtual ~CacheSnapshot() = default;
    virtual std::string Server() const = 0;
    virtual DateTime ScannedAt() const = 0;  // local time; 0 = nothing was scanned
    virtual CacheFigures Totals() const = 0;
    virtual std::vector<SnapshotSite> Sites() const = 0;
    virtual std::vector<SnapshotType> Types() const = 0;
    virtual std::vector<SnapshotCounter> Counters() const = 0;  // the performance counters as last read
    // All entries in the tree's order, streamed: `entry` is used again. False ends it.
    virtual void ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const = 0;
};
