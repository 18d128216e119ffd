#pragma once

#include "export/CacheSnapshot.h"

#include <functional>
#include <string>
#include <vector>

// A scan of as many cached URLs as asked for, all different, with texts as servers send them: letters of
// other scripts, bytes that are not UTF-8, zero characters, quotes.
class SyntheticSnapshot : public CacheSnapshot {
public:
    explicit SyntheticSnapshot(std::int64_t entries) : m_entries(entries) {}

    std::string Server() const override { return "web'1\"; DROP TABLE x"; }
    DateTime ScannedAt() const override { return {45'000.75}; }
    CacheFigures Totals() const override
    {
        CacheFigures totals;
        for (const auto& site : Sites()) totals.Add(site.figures);
        return totals;
    }
    std::vector<SnapshotSite> Sites() const override
    {
        std::vector<SnapshotSite> sites{{1, "First", {}}, {2, "Zw\xC3\xB6lf \xFF", {}}};
        SnapshotEntry entry;
        for (std::int64_t i = 0; i < m_entries; ++i) {
            Fill(entry, i);
            sites[static_cast<std::size_t>(entry.site - 1)].figures.Add(entry.figures);
        }
        return sites;
    }
    std::vector<SnapshotType> Types() const override { return {{"html", Totals()}, {"", {}}}; }
    std::vector<SnapshotCounter> Counters() const override
    {
        return {{"Requests/Sec", 12.5}, {"% hits \xE2\x82\xAC", 37.5}, {"Unknown", 0.0 / m_zero}};
    }
    void ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const override
    {
        SnapshotEntry entry;
        for (std::int64_t i = 0; i < m_entries; ++i) {
            Fill(entry, i);
            if (onEntry) onEntry(i);
            if (!take(entry)) return;
        }
    }

    std::function<void(std::int64_t)> onEntry;  // before each is handed out

private:
    static void Fill(SnapshotEntry& entry, std::int64_t i)
    {
        entry.site = static_cast<std::int32_t>(1 + i % 2);
        entry.path = "/a/'" + std::to_string(i) + (i % 3 == 0 ? "\xFF\xC3" : "\xC3\xA4") + ".html";
        if (i % 5 == 0) entry.path += '\0';
        entry.queryHash = i % 7 == 0 ? "0123abcd" : "";
        entry.type = "html";
        entry.physicalPath = "C:\\sites\\" + std::to_string(i / 100) + "\\index.html";
        entry.level = static_cast<std::int32_t>(i % 10);
        entry.cacheId = static_cast<std::int32_t>(i);
        entry.cached = {45'000 + static_cast<double>(i) / 86'400};
        entry.expires = {i % 2 == 0 ? 0 : 46'000.5};
        const auto size = static_cast<double>(i);
        entry.figures = {1, 1000 + size, 400 + size / 2, size * 3,   size * 7,
                         i, i / 2,       i % 4,          size * 1e9, 12'345};
    }

    double m_zero = 0;
    std::int64_t m_entries;
};
