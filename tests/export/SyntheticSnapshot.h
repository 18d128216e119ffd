#pragma once

#include "export/ReportSnapshot.h"

#include <limits>
#include <string>

// A scan of as many cached URLs as asked for, all different, with texts as servers send them: letters of
// other scripts, bytes that are not UTF-8, zero characters, quotes.
class SyntheticSnapshot : public ReportSnapshot {
public:
    explicit SyntheticSnapshot(std::int64_t entries) : ReportSnapshot(Entries(entries))
    {
        server = "web'1\"; DROP TABLE x";
        sites = {{1, "First", {}}, {2, "Zw\xC3\xB6lf \xFF", {}}};
        constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
        counters = {{"Requests/Sec", 12.5}, {"% hits \xE2\x82\xAC", 37.5}, {"Unknown", kNone}};
    }

private:
    static std::vector<SnapshotEntry> Entries(std::int64_t count)
    {
        std::vector<SnapshotEntry> entries(static_cast<std::size_t>(count));
        for (std::int64_t i = 0; i < count; ++i) Fill(entries[static_cast<std::size_t>(i)], i);
        return entries;
    }

    static void Fill(SnapshotEntry& entry, std::int64_t i)
    {
        entry.site = static_cast<std::int32_t>(1 + i % 2);
        entry.path = "/a/'" + std::to_string(i) + (i % 3 == 0 ? "\xFF\xC3" : "\xC3\xA4") + ".html";
        if (i % 5 == 0) entry.path += '\0';
        entry.queryHash = i % 7 == 0 ? "0123abcd" : "";
        entry.type = i % 11 == 0 ? "" : "html";
        entry.physicalPath = "C:\\sites\\" + std::to_string(i / 100) + "\\index.html";
        entry.level = static_cast<std::int32_t>(i % 10);
        entry.cacheId = static_cast<std::int32_t>(i);
        entry.cached = {45'000 + static_cast<double>(i) / 86'400};
        entry.expires = {i % 2 == 0 ? 0 : 46'000.5};
        const auto size = static_cast<double>(i);
        entry.figures = {1, 1000 + size, 400 + size / 2, size * 3,   size * 7,
                         i, i / 2,       i % 4,          size * 1e9, 12'345};
    }
};
