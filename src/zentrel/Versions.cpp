#include "zentrel/Versions.h"

#include <limits>

namespace zentrel {

namespace {

constexpr std::uint64_t kTicksPerDay = 864'000'000'000;
constexpr std::uint64_t kKeptFor = 30 * kTicksPerDay;

std::uint32_t CacheIdOf(const PropertySet& url)
{
    const auto property = url.Find(Prop::CacheId);
    return property ? Record(*property).Number() : 0;
}

std::optional<CacheRecord> RecordOf(const PropertySet& version, Encoding encoding)
{
    const auto property = version.Find(RecordProperty(encoding));
    return property ? ParseCacheRecord(property->bytes) : std::nullopt;
}

void CountOne(std::int32_t& counter)
{
    if (counter < std::numeric_limits<std::int32_t>::max()) ++counter;
}

template <class Change>
void ChangeStatistics(PropertySet& properties, Change change)
{
    const auto property = properties.Find(Prop::Statistics);
    auto statistics = property ? ParseStatisticsRecord(property->bytes) : std::nullopt;
    if (!statistics) statistics.emplace();
    change(*statistics);
    properties.SetBytes(Prop::Statistics, WriteStatisticsRecord(*statistics));
}

std::string VariantPath(const VersionKey& key)
{
    return key.path + '/' + QueryHashText(key.query);
}

CacheRecord MakeRecord(const VersionKey& key, const NewVersion& version, std::uint64_t now)
{
    CacheRecord record;
    record.level = version.level;
    record.cacheTicks = now;
    record.expiresTicks = now + kKeptFor;
    record.fileTicks = version.source.ticks;
    record.uncompressedSize = version.source.size;
    record.compressedSize = version.body.size();
    record.queryHash = key.query;
    return record;
}

}  // namespace

Result<std::optional<Versions::Good>> Versions::FindGood(const VersionKey& key, const FileStamp& source) const
{
    auto properties = m_entries.Load(key.path);
    if (!properties) return Fail(properties.error());
    const auto id = CacheIdOf(*properties);
    if (id == 0) return std::nullopt;
    if (key.query != 0) properties = m_entries.Load(VariantPath(key));
    if (!properties) return Fail(properties.error());
    const auto record = RecordOf(*properties, key.encoding);
    const bool isGood = record && record->fileTicks == source.ticks &&
                        record->uncompressedSize == source.size && record->expiresTicks > TicksNow();
    if (!isGood) return std::nullopt;
    return Good{{id, key.encoding, key.query}, record->compressedSize};
}

Done Versions::Keep(const VersionKey& key, const NewVersion& version, StagedFile body)
{
    if (auto admitted = m_entries.Admit(); !admitted) return admitted;
    auto url = m_entries.Load(key.path);
    if (!url) return Fail(url.error());
    Result<PropertySet> variant;
    if (key.query != 0) variant = m_entries.Load(VariantPath(key));
    if (!variant) return Fail(variant.error());
    if (CacheIdOf(*url) == 0) {
        const auto id = m_entries.NewCacheId();
        if (!id) return Fail(id.error());
        url->SetNumber(Prop::CacheId, *id);
    }
    const CachedFile file{CacheIdOf(*url), key.encoding, key.query};
    if (auto placed = m_folder.Place(std::move(body), file); !placed) return placed;

    const auto now = TicksNow();
    auto& owner = key.query != 0 ? *variant : *url;
    const auto replaced = RecordOf(owner, key.encoding);
    owner.SetBytes(RecordProperty(key.encoding), WriteCacheRecord(MakeRecord(key, version, now)));
    const auto count = [&](StatisticsRecord& statistics) {
        statistics.cpuTime += version.cpuTicks;
        if (!replaced) return;
        CountOne(statistics.overwrites);
        if (now > replaced->cacheTicks) statistics.totalLife += now - replaced->cacheTicks;
    };
    ChangeStatistics(*url, count);
    if (key.query != 0) {
        ChangeStatistics(*variant, count);
        if (auto put = m_entries.Put(VariantPath(key), std::move(*variant)); !put) return put;
    }
    return m_entries.Put(key.path, std::move(*url));
}

Done Versions::CountRequest(const VersionKey& key, bool fromCache)
{
    const auto count = [fromCache](StatisticsRecord& statistics) {
        CountOne(statistics.totalHits);
        if (fromCache) CountOne(statistics.cacheHits);
    };
    auto url = m_entries.Load(key.path);
    if (!url) return Fail(url.error());
    if (CacheIdOf(*url) == 0) return {};
    if (key.query != 0) {
        auto variant = m_entries.Load(VariantPath(key));
        if (!variant) return Fail(variant.error());
        if (RecordOf(*variant, Encoding::Gzip) || RecordOf(*variant, Encoding::Deflate)) {
            ChangeStatistics(*variant, count);
            if (auto put = m_entries.Put(VariantPath(key), std::move(*variant)); !put) return put;
        }
    }
    ChangeStatistics(*url, count);
    return m_entries.Put(key.path, std::move(*url));
}

}  // namespace zentrel
