#include "export/CacheReport.h"

#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kPoorRatio = 0.95;

// What is no number ranks last.
double RankOf(double value)
{
    return std::isnan(value) ? -std::numeric_limits<double>::infinity() : value;
}

// Keeps the entries with the highest ranks of all that are offered.
class TopEntries {
public:
    explicit TopEntries(std::size_t most) : m_most(most) {}

    void Offer(double rank, const SnapshotEntry& entry)
    {
        m_all.Add(entry.figures);
        const Place place{RankOf(rank), m_offered++};
        if (m_kept.size() == m_most) {
            if (m_most == 0 || !IsBefore(place, m_kept.front().place)) return;
            std::pop_heap(m_kept.begin(), m_kept.end(), KeptBefore);
            m_kept.pop_back();
        }
        m_kept.push_back({place, entry});
        std::push_heap(m_kept.begin(), m_kept.end(), KeptBefore);
    }

    ReportList Take()
    {
        std::sort_heap(m_kept.begin(), m_kept.end(), KeptBefore);
        ReportList list{{}, m_all};
        for (auto& kept : m_kept) list.top.push_back(std::move(kept.entry));
        return list;
    }

private:
    struct Place {
        double rank;
        std::uint64_t number;  // in the order offered
    };
    struct Kept {
        Place place;
        SnapshotEntry entry;
    };

    static bool IsBefore(const Place& left, const Place& right)
    {
        return left.rank != right.rank ? left.rank > right.rank : left.number < right.number;
    }
    static bool KeptBefore(const Kept& left, const Kept& right) { return IsBefore(left.place, right.place); }

    std::size_t m_most;
    std::uint64_t m_offered = 0;
    CacheFigures m_all;
    std::vector<Kept> m_kept;  // a heap with the last place in front
};

class Gatherer {
public:
    Gatherer(DateTime scannedAt, std::size_t most)
        : m_scannedAt(scannedAt),
          m_savers(most),
          m_neverHit(most),
          m_poorRatio(most),
          m_expired(most)
    {
    }

    void Take(const SnapshotEntry& entry)
    {
        const auto& figures = entry.figures;
        const auto savings = figures.BandwidthSavings();
        if (savings > 0) m_savers.Offer(savings, entry);
        if (figures.totalHits == 0) m_neverHit.Offer(figures.compressedSize, entry);
        if (const auto ratio = figures.Ratio(); ratio > kPoorRatio) m_poorRatio.Offer(ratio, entry);
        const auto expires = entry.expires.days;
        if (expires != 0 && expires < m_scannedAt.days) m_expired.Offer(-expires, entry);
        const bool isUsual = entry.level >= 0 && entry.level < static_cast<int>(CacheReport::kLevels);
        m_levels[isUsual ? static_cast<std::size_t>(entry.level) : CacheReport::kLevels].Add(figures);
    }

    void MoveTo(CacheReport& report)
    {
        report.savers = m_savers.Take();
        report.neverHit = m_neverHit.Take();
        report.poorRatio = m_poorRatio.Take();
        report.expired = m_expired.Take();
        report.levels = m_levels;
    }

private:
    DateTime m_scannedAt;
    TopEntries m_savers, m_neverHit, m_poorRatio, m_expired;
    decltype(CacheReport::levels) m_levels;
};

ReportParts PartsOf(std::vector<ReportPart> all, std::size_t most)
{
    ReportParts parts;
    const auto named = std::min(most, all.size());
    for (std::size_t i = named; i < all.size(); ++i) parts.otherFigures.Add(all[i].figures);
    parts.others = static_cast<std::int64_t>(all.size() - named);
    all.resize(named);
    parts.named = std::move(all);
    return parts;
}

std::vector<ReportPart> SitesOf(const CacheSnapshot& snapshot)
{
    std::vector<ReportPart> parts;
    for (auto& site : snapshot.Sites()) parts.push_back({std::move(site.name), site.figures, site.number});
    return parts;
}

std::vector<ReportPart> TypesOf(const CacheSnapshot& snapshot)
{
    std::vector<ReportPart> parts;
    for (auto& type : snapshot.Types()) parts.push_back({std::move(type.type), type.figures, 0});
    std::sort(parts.begin(), parts.end(), [](const ReportPart& left, const ReportPart& right) {
        const auto size = RankOf(left.figures.uncompressedSize),
                   other = RankOf(right.figures.uncompressedSize);
        return size != other ? size > other : CompareText(left.name, right.name) < 0;
    });
    return parts;
}

}  // namespace

Result<CacheReport> GenerateReport(const CacheSnapshot& snapshot, const ReportOptions& options)
{
    constexpr std::uint64_t kBetweenQuestions = 1024;
    CacheReport report;
    report.server = snapshot.Server();
    report.scannedAt = snapshot.ScannedAt();
    Gatherer gatherer(report.scannedAt, options.mostEntries);
    std::uint64_t taken = 0;
    bool isCancelled = false;
    const auto isUnwanted = [&] { return isCancelled = options.isCancelled && options.isCancelled(); };
    snapshot.ForEachEntry([&](const SnapshotEntry& entry) {
        if (taken++ % kBetweenQuestions == 0 && isUnwanted()) return false;
        gatherer.Take(entry);
        return true;
    });
    if (isCancelled || isUnwanted()) return Fail(Code::Cancelled, "Report");
    gatherer.MoveTo(report);
    report.totals = snapshot.Totals();
    report.sites = PartsOf(SitesOf(snapshot), options.mostParts);
    report.types = PartsOf(TypesOf(snapshot), options.mostParts);
    return report;
}
