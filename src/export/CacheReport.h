#pragma once

#include "base/Result.h"
#include "export/CacheSnapshot.h"

#include <array>
#include <functional>

// Some cached URLs of a kind, the most telling first, with the sums of all of that kind.
struct ReportList {
    std::vector<SnapshotEntry> top;
    CacheFigures all;
};

struct ReportPart {
    std::string name;
    CacheFigures figures;
    std::int32_t number = 0;  // of a site
};

// The parts that a cache is made of, with the sums of those that were too many to be named.
struct ReportParts {
    std::vector<ReportPart> named;
    std::int64_t others = 0;
    CacheFigures otherFigures;
};

// What a report says of a scan; holds all its data.
struct CacheReport {
    static constexpr std::size_t kLevels = 10;  // 0 to 9

    std::string server;
    DateTime scannedAt;  // local time; 0 = nothing was scanned
    CacheFigures totals;
    ReportParts sites;                             // in the tree's order
    ReportParts types;                             // the largest uncompressed size first
    ReportList savers;                             // save bandwidth; the most first
    ReportList neverHit;                           // without a hit; the largest first
    ReportList poorRatio;                          // compressed to more than 95 %; the worst first
    ReportList expired;                            // before the scan; the longest expired first
    std::array<CacheFigures, kLevels + 1> levels;  // by compression level; the last one: any other
};

struct ReportOptions {
    std::size_t mostEntries = 25;       // in each list
    std::size_t mostParts = 200;        // sites and types that are named
    std::function<bool()> isCancelled;  // asked now and then, on the thread that gathers
};

// Gathers the report in one pass over the entries; what it keeps does not grow with their number. Entries
// that rank alike stand in the tree's order. Fails with Cancelled only.
Result<CacheReport> GenerateReport(const CacheSnapshot& snapshot, const ReportOptions& options = {});
