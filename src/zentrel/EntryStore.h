#pragma once

#include "base/Result.h"
#include "zentrel/Counters.h"
#include "zentrel/Metabase.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zentrel {

// The counters as they were last stored; a store that has none counts from now.
Result<CounterTotals> ReadCounters(const ReadTxn& txn);
Done WriteCounters(WriteTxn& txn, const CounterTotals& totals);

// The entries as a writer works on them: changes gather in memory and go to the store many at a time.
// What waits is seen by Load, but by no reader of the store. Not for several threads at once.
class EntryStore {
public:
    // The metabase outlives this.
    static Result<std::unique_ptr<EntryStore>> Open(Metabase& store);

    // All properties of a key; none when there is no such key.
    Result<PropertySet> Load(std::string_view path) const;

    // Replaces all properties of a key, making it when it is not there.
    // Fails when the store takes nothing (a full disk) and too much waits already; that change is lost.
    Done Put(const std::string& path, PropertySet properties);

    // Whether new entries can be taken: the error of the last flush while it cannot be made good.
    Done Admit();

    // Never given twice. DiskFull when all 2^31 - 1 are used up.
    Result<std::uint32_t> NewCacheId();

    const CounterTotals& Counters() const { return m_counters; }
    CounterTotals& ChangeCounters();  // stored with the next flush

    // Writes all changes in one transaction. After a failure they still wait.
    Done Flush();
    Done FlushIfDue();  // by number of changes or by time

private:
    using Clock = std::chrono::steady_clock;

    explicit EntryStore(Metabase& store) : m_store(store) {}
    Done Write();

    Metabase& m_store;
    std::unordered_map<std::string, PropertySet> m_pending;
    CounterTotals m_counters;
    std::uint32_t m_nextCacheId = 1;
    bool m_changed = false;  // the counters or the next cache id
    Clock::time_point m_lastFlush = Clock::now();
    std::optional<SystemError> m_failure;  // of the last flush
};

}  // namespace zentrel
