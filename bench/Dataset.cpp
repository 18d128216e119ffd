#include "Dataset.h"

#include "zentrel/KeyPath.h"
#include "zentrel/Metabase.h"
#include "zentrel/RecordLayout.h"

#include <array>
#include <cstdio>
#include <string>

namespace {

constexpr std::uint32_t kFolderSize = 100;
constexpr std::uint32_t kTransaction = 50'000;
constexpr std::uint64_t kFarAhead = 31'536'000'000'000'000;  // a hundred years in ticks
constexpr std::array kExtensions{"htm", "html", "css", "js", "xml", "json", "txt", "svg", "aspx", "csv"};

std::string UrlPath(std::uint32_t i)
{
    const auto folder = i / kFolderSize;
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "/section%03u/folder%03u/page-%02u-%05x.%s", folder / 100,
                  folder % 100, i % kFolderSize, (i * 2654435761U) >> 12U,
                  kExtensions[(i * 7) % kExtensions.size()]);
    return text.data();
}

zentrel::PropertySet Entry(std::uint32_t i)
{
    zentrel::CacheRecord cache;
    cache.level = 6;
    cache.cacheTicks = 133'000'000'000'000'000 + std::uint64_t{i} * 10'000'000;
    cache.expiresTicks = cache.cacheTicks + kFarAhead;  // a daemon would clear it away otherwise
    cache.fileTicks = cache.cacheTicks - 864'000'000'000;
    cache.uncompressedSize = 2'000 + (i * 977U) % 90'000;
    cache.compressedSize = cache.uncompressedSize / 4 + i % 50;
    zentrel::StatisticsRecord statistics;
    statistics.totalHits = static_cast<std::int32_t>(i % 500);
    statistics.cacheHits = static_cast<std::int32_t>(i % 400);
    statistics.cpuTime = 40'000 + i % 9'000;
    zentrel::PropertySet set;
    set.SetNumber(zentrel::Prop::CacheId, i + 1);
    set.SetBytes(zentrel::Prop::GzipRecord, zentrel::WriteCacheRecord(cache));
    set.SetBytes(zentrel::Prop::Statistics, zentrel::WriteStatisticsRecord(statistics));
    return set;
}

}  // namespace

Done MakeDataset(const std::filesystem::path& dataFolder, std::uint32_t urls)
{
    auto store = zentrel::Metabase::Open(dataFolder, zentrel::Metabase::Access::Write);
    if (!store) return Fail(store.error());
    const auto root = zentrel::SiteRootKey(1);
    for (std::uint32_t i = 0; i < urls;) {
        auto txn = (*store)->BeginWrite();
        if (!txn) return Fail(txn.error());
        for (const auto end = std::min(urls, i + kTransaction); i < end; ++i)
            if (auto set = txn->SetProperties(root + UrlPath(i), Entry(i)); !set) return set;
        if (auto committed = txn->Commit(); !committed) return committed;
    }
    return {};
}
