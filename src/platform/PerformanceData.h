#pragma once

#include "base/Result.h"
#include "platform/CounterPath.h"
#include "platform/PdhStatus.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// One counter as a machine publishes it. The texts live as long as the source.
struct PublishedCounter {
    std::string_view object, instance, name;
    std::uint32_t type = PdhType::RawCount;
    double value = 0;                             // a percentage is 37.5, not 0.375
    std::optional<std::string_view> explainText;  // empty: it cannot be read
};

// Where counters come from.
class CounterSource {
public:
    virtual ~CounterSource() = default;
    // All counters of a machine in one go; of this one when the name is empty. A machine that publishes
    // none is no failure. May let messages run while it waits.
    virtual Result<std::vector<PublishedCounter>> Read(const std::string& machine) = 0;
    virtual void Leave() = 0;  // nobody asks any more: connections and memories of failures may go
};

using QueryHandle = std::uint32_t;    // 0 is none; a handle is never given out twice
using CounterHandle = std::uint32_t;  // likewise

struct CounterInfo {
    std::uint32_t type = 0;
    std::uint32_t version = 0;
    PdhStatus status = Pdh::NotValidated;  // of the last collection
    std::int32_t scale = 0, defaultScale = 0;
    std::uint32_t userData = 0, queryUserData = 0;
    std::string fullPath, machine;  // as they were asked for
    std::string object, instance, parentInstance;
    std::uint32_t instanceIndex = 0;
    std::string counterName, explainText;
};

// The performance data helper: queries that hold counters and sample them together. A machine is read once
// for all counters that are added, and once for each collection; one that could not be read stays so for the
// additions of that query, so that many counters do not wait many times.
// Calls that wait may let messages run, and those may call anything here.
class PerformanceData {
public:
    explicit PerformanceData(CounterSource& source) : m_source(source) {}  // which must outlive this

    PdhStatus OpenQuery(QueryHandle& query);  // OutOfMemory when a great many stand open
    PdhStatus CloseQuery(QueryHandle query);
    // Names are compared without regard to case. Fails as ParseCounterPath, and with NoObject, NoInstance,
    // NoCounter, InvalidHandle, Retry (the query is being read); and when the machine cannot be read with
    // CannotConnect (it lets nobody in), SenselessData, OutOfMemory, Retry (IoPending), else NoMachine.
    PdhStatus AddCounter(QueryHandle handle, std::string_view path, CounterHandle& counter);
    // Good when any of the counters has a value now; else the first one's status, NoData without counters.
    PdhStatus CollectQueryData(QueryHandle handle);
    // InvalidData when the last collection brought none; `value` stays.
    PdhStatus GetDoubleCounterValue(CounterHandle handle, double& value) const;
    // NoExplainText when it is asked for and cannot be had; `info` stays.
    PdhStatus GetCounterInfo(CounterHandle handle, bool withExplainText, CounterInfo& info) const;

private:
    struct Machine {
        std::string name;
        PdhStatus status = Pdh::NotValidated;  // of the last reading
        std::vector<PublishedCounter> published = {};
    };
    struct Counter {
        CounterPath path;
        std::string fullPath;
        std::size_t machine;         // index in the query
        PublishedCounter published;  // as last read
        PdhStatus status = Pdh::NotValidated;
    };
    struct Query {
        std::vector<Machine> machines = {};
        std::map<CounterHandle, Counter> counters = {};
        bool isBeingRead = false;

        std::size_t MachineNamed(const std::string& name);
        bool HasCountersOf(std::size_t machine) const;
        void Update(std::size_t machine);
    };

    static PdhStatus Find(const Machine& machine, const CounterPath& path, PublishedCounter& found);
    Query* QueryOf(QueryHandle handle);
    const Counter* CounterOf(CounterHandle handle) const;
    PdhStatus Read(QueryHandle handle, std::size_t machine);

    CounterSource& m_source;
    std::map<QueryHandle, Query> m_queries;
    std::uint32_t m_lastHandle = 0;
};
