#pragma once

#include "cache/CacheScan.h"
#include "export/CacheSnapshot.h"
#include "stats/modPerfCntr.h"

#include <mutex>

// What a scan found, for reports and exports. Sums are made of the entries that the tree holds now, so that
// they agree with one another also after deletions. The contents must outlive this and stand still.
class ScanSnapshot : public CacheSnapshot {
public:
    ScanSnapshot(const CacheContents& contents, std::string server, DateTime scannedAt,
                 const std::vector<PerfCounter>& counters);

    std::string Server() const override { return m_server; }
    DateTime ScannedAt() const override { return m_scannedAt; }
    CacheFigures Totals() const override { return Sum().totals; }
    std::vector<SnapshotSite> Sites() const override { return Sum().sites; }
    std::vector<SnapshotType> Types() const override { return Sum().types; }
    std::vector<SnapshotCounter> Counters() const override { return m_counters; }
    void ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const override;

private:
    struct Sums {
        CacheFigures totals;
        std::vector<SnapshotSite> sites;  // in the tree's order
        std::vector<SnapshotType> types;  // in the order first met
    };

    const Sums& Sum() const;
    Sums MakeSums() const;

    const CacheContents& m_contents;
    const std::string m_server;
    const DateTime m_scannedAt;
    std::vector<SnapshotCounter> m_counters;
    mutable std::once_flag m_isSummed;  // by whoever asks first: it takes a second for a million entries
    mutable Sums m_sums;
};
