#include "shell/ScanSnapshot.h"

#include "base/ParseInteger.h"

#include <unordered_map>

namespace {

CacheFigures FiguresOf(const FileInfo& info)
{
    return {info.Count,
            info.UncompressedSize,
            info.CompressedSize,
            info.ServedCompressed,
            info.UncompEquivalent,
            info.TotalHits,
            info.CacheHits,
            info.Overwrites,
            info.TotalLife,
            info.CpuTime};
}

// A site's name is its key, as in "1/Root".
std::int32_t SiteNumber(std::string_view name)
{
    return ParseInteger(name.substr(0, name.find('/'))).value_or(0);
}

void SetEntry(SnapshotEntry& entry, FileInfo info)
{
    entry.figures = FiguresOf(info);
    entry.path = std::move(info.FilePath);
    entry.queryHash = std::move(info.QueryHash);
    entry.physicalPath = info.PhysycalPath();
    entry.type = std::move(info.Extension);
    entry.level = info.CompLevel;
    entry.cacheId = info.CacheID;
    entry.cached = info.CacheDate;
    entry.expires = info.Expires;
    entry.modified = info.FileDate;
}

}  // namespace

ScanSnapshot::ScanSnapshot(const CacheContents& contents, std::string server, DateTime scannedAt,
                           const std::vector<PerfCounter>& counters)
    : m_contents(contents),
      m_server(std::move(server)),
      m_scannedAt(scannedAt)
{
    for (const auto& counter : counters) {
        const auto& name = counter.info.counterName;
        m_counters.push_back({name.empty() ? counter.label : name, counter.value});
    }
}

// Parents before their children, without recursion: a tree may be as deep as a server likes.
void ScanSnapshot::ForEachEntry(const std::function<bool(const SnapshotEntry&)>& take) const
{
    const auto& tree = m_contents.tree;
    if (tree.Root() == kNoNode) return;
    SnapshotEntry entry;
    std::vector<NodeId> waiting{tree.Root()};
    while (!waiting.empty()) {
        const auto node = waiting.back();
        waiting.pop_back();
        if (tree.Depth(node) == 1) entry.site = SiteNumber(tree.Name(node));
        if (tree.HasInfo(node)) {
            SetEntry(entry, tree.Info(node));
            if (!take(entry)) return;
        }
        for (auto row = tree.ChildCount(node); row > 0; --row) waiting.push_back(tree.Child(node, row - 1));
    }
}

const ScanSnapshot::Sums& ScanSnapshot::Sum() const
{
    std::call_once(m_isSummed, [this] { m_sums = MakeSums(); });
    return m_sums;
}

ScanSnapshot::Sums ScanSnapshot::MakeSums() const
{
    Sums sums;
    const auto& tree = m_contents.tree;
    std::unordered_map<std::int32_t, std::size_t> siteRows;
    const std::size_t count = tree.Root() == kNoNode ? 0 : tree.ChildCount(tree.Root());
    for (std::size_t row = 0; row < count; ++row) {
        const auto site = tree.Child(tree.Root(), row);
        siteRows.emplace(SiteNumber(tree.Name(site)), row);
        sums.sites.push_back({SiteNumber(tree.Name(site)), tree.Text(site), {}});
    }
    std::unordered_map<std::string, std::size_t> typeRows;
    ForEachEntry([&](const SnapshotEntry& entry) {
        sums.totals.Add(entry.figures);
        if (const auto site = siteRows.find(entry.site); site != siteRows.end())
            sums.sites[site->second].figures.Add(entry.figures);
        const auto [type, isNew] = typeRows.emplace(entry.type, sums.types.size());
        if (isNew) sums.types.push_back({entry.type, {}});
        sums.types[type->second].figures.Add(entry.figures);
        return true;
    });
    return sums;
}
