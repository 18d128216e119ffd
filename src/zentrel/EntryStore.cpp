#include "zentrel/EntryStore.h"

#include "zentrel/Commit.h"
#include "zentrel/LittleEndian.h"
#include "zentrel/RecordLayout.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace zentrel {

namespace {

constexpr std::string_view kCountersName = "counters";
constexpr std::string_view kNextCacheIdName = "nextCacheId";
constexpr std::size_t kFlushAfter = 512;  // changes
constexpr std::size_t kMostWaiting = 65536;
constexpr std::chrono::milliseconds kFlushEvery{200};
constexpr std::uint32_t kLastCacheId = std::numeric_limits<std::int32_t>::max();

}  // namespace

Result<CounterTotals> ReadCounters(const ReadTxn& txn)
{
    const auto stored = txn.Meta(kCountersName);
    if (!stored) return Fail(stored.error());
    CounterTotals totals;
    if (*stored)
        totals = UnpackCounters(**stored);
    else
        totals.sinceTicks = TicksNow();
    return totals;
}

Done WriteCounters(WriteTxn& txn, const CounterTotals& totals)
{
    return txn.SetMeta(kCountersName, PackCounters(totals));
}

Result<std::unique_ptr<EntryStore>> EntryStore::Open(Metabase& store)
{
    const auto txn = store.BeginRead();
    if (!txn) return Fail(txn.error());
    const auto counters = ReadCounters(*txn);
    if (!counters) return Fail(counters.error());
    const auto next = txn->Meta(kNextCacheIdName);
    if (!next) return Fail(next.error());
    std::unique_ptr<EntryStore> entries(new EntryStore(store));
    entries->m_counters = *counters;
    if (*next && (*next)->size() == sizeof(std::uint32_t))
        entries->m_nextCacheId = LoadLittle<std::uint32_t>((*next)->data());
    return entries;
}

Result<PropertySet> EntryStore::Load(std::string_view path) const
{
    if (const auto waiting = m_pending.find(std::string(path)); waiting != m_pending.end())
        return waiting->second;
    const auto txn = m_store.BeginRead();
    if (!txn) return Fail(txn.error());
    const auto row = txn->Find(path);
    if (!row) return Fail(row.error());
    return *row ? PropertySet((*row)->properties) : PropertySet();
}

Done EntryStore::Put(const std::string& path, PropertySet properties)
{
    if (m_failure && m_pending.size() >= kMostWaiting && !m_pending.contains(path)) return Fail(*m_failure);
    m_pending.insert_or_assign(path, std::move(properties));
    return {};
}

Done EntryStore::Admit()
{
    if (m_failure) static_cast<void>(FlushIfDue());  // its outcome is m_failure
    if (m_failure) return Fail(*m_failure);
    return {};
}

Result<std::uint32_t> EntryStore::NewCacheId()
{
    if (m_nextCacheId > kLastCacheId) return Fail(Code::DiskFull, "Service", "All cache ids are used up.");
    m_changed = true;
    return m_nextCacheId++;
}

CounterTotals& EntryStore::ChangeCounters()
{
    m_changed = true;
    return m_counters;
}

Done EntryStore::Flush()
{
    if (m_pending.empty() && !m_changed) return {};
    auto written = Write();
    m_lastFlush = Clock::now();
    if (!written) {
        m_failure = written.error();
        return written;
    }
    m_failure.reset();
    m_pending.clear();
    m_changed = false;
    return {};
}

Done EntryStore::Write()
{
    // In the order of the store, so that neighbours are written together.
    std::vector<const std::pair<const std::string, PropertySet>*> changes;
    changes.reserve(m_pending.size());
    for (const auto& change : m_pending) changes.push_back(&change);
    std::sort(changes.begin(), changes.end(), [](auto* a, auto* b) { return a->first < b->first; });

    auto txn = m_store.BeginWrite();
    if (!txn) return Fail(txn.error());
    for (const auto* change : changes)
        if (auto set = txn->SetProperties(change->first, change->second); !set) return set;
    if (auto set = WriteCounters(*txn, m_counters); !set) return set;
    std::array<std::byte, sizeof m_nextCacheId> next{};
    StoreLittle(next.data(), m_nextCacheId);
    if (auto set = txn->SetMeta(kNextCacheIdName, next); !set) return set;
    return CommitChange(*txn);
}

Done EntryStore::FlushIfDue()
{
    const bool isFull = m_pending.size() >= kFlushAfter && !m_failure;
    if (!isFull && Clock::now() - m_lastFlush < kFlushEvery) return {};
    return Flush();
}

}  // namespace zentrel
