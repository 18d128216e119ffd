#pragma once

#include "export/CacheSnapshot.h"

#include <functional>
#include <map>
#include <utility>

inline constexpr double kScanned = 45'000.75;

inline SnapshotEntry EntryOf(const char* path, const CacheFigures& figures)
{
    SnapshotEntry entry;
    entry.site = 1;
    entry.path = path;
    entry.type = "html";
    entry.figures = figures;
    entry.figures.count = 1;
    return entry;
}

// Entries that differ in one respect only.
inline SnapshotEntry Saver(const char* path, double savings)
{
    CacheFigures figures;
    figures.servedCompressed = 100;
    figures.uncompEquivalent = 100 + savings;
    return EntryOf(path, figures);
}

inline SnapshotEntry Hit(const char* path, std::int64_t hits, double compressed)
{
    CacheFigures figures;
    figures.totalHits = hits;
    figures.compressedSize = compressed;
    return EntryOf(path, figures);
}

inline SnapshotEntry Ratio(const char* path, double compressed, double uncompressed)
{
    auto entry = Hit(path, 1, compressed);
    entry.figures.uncompressedSize = uncompressed;
    return entry;
}

inline SnapshotEntry Expiring(const char* path, double expires)
{
    auto entry = EntryOf(path, {});
    entry.expires = {expires};
    return entry;
}

// A scan of the given entries; its sums are theirs.
class ReportSnapshot : public CacheSnapshot {
public:
    explicit ReportSnapshot(std::vector<SnapshotEntry> entries) : m_entries(std::move(entries)) {}

    std::string Server() const override { return server; }
    DateTime ScannedAt() const override { return {kScanned}; }
    CacheFigures Totals() const override
    {
        CacheFigures totals;
        for (const auto& entry : m_entries) totals.Add(entry.figures);
        return totals;
    }
    std::vector<SnapshotSite> Sites() const override
    {
        auto sums = sites;
        for (const auto& entry : m_entries)
            sums.at(static_cast<std::size_t>(entry.site - 1)).figures.Add(entry.figures);
        return sums;
    }
    std::vector<SnapshotType> Types() const override
    {
        std::map<std::string, CacheFigures> sums;
        for (const auto& entry : m_entries) sums[entry.type].Add(entry.figures);
        std::vector<SnapshotType> types;
        for (const auto& [type, figures] : sums) types.push_back({type, figures});
        return types;
    }
    std::vector<SnapshotCounter> Counters() const override { return counters; }
    void ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const override
    {
        std::int64_t next = 0;
        for (const auto& entry : m_entries) {
            if (onEntry) onEntry(next++);
            if (!take(entry)) return;
        }
    }

    std::string server = "WEB1";
    std::vector<SnapshotSite> sites{{1, "Default Web Site", {}}};  // numbered from 1 on
    std::vector<SnapshotCounter> counters;
    std::function<void(std::int64_t)> onEntry;  // before each is handed out

private:
    std::vector<SnapshotEntry> m_entries;
};
