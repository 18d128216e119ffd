#include "platform/PerformanceData.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t kMostQueries = 64;  // more of them are a leak

bool IsSame(std::string_view left, std::string_view right)
{
    return CompareFolded(left, right) == 0;
}

PdhStatus StatusOf(const SystemError& error)
{
    switch (error.Plain()) {
    case Code::AccessDenied: return Pdh::CannotConnect;
    case Code::InvalidData: return Pdh::SenselessData;
    case Code::OutOfMemory: return Pdh::OutOfMemory;
    case Code::IoPending: return Pdh::Retry;
    default: return Pdh::NoMachine;
    }
}

}  // namespace

std::size_t PerformanceData::Query::MachineNamed(const std::string& name)
{
    const auto at = std::find_if(machines.begin(), machines.end(),
                                 [&name](const Machine& machine) { return IsSame(machine.name, name); });
    const auto index = static_cast<std::size_t>(at - machines.begin());
    if (at == machines.end()) machines.push_back({name});
    return index;
}

bool PerformanceData::Query::HasCountersOf(std::size_t machine) const
{
    return std::any_of(counters.begin(), counters.end(),
                       [machine](const auto& entry) { return entry.second.machine == machine; });
}

void PerformanceData::Query::Update(std::size_t machine)
{
    const auto& read = machines[machine];
    for (auto& [handle, counter] : counters) {
        if (counter.machine != machine) continue;
        counter.status = read.status == Pdh::Good ? Find(read, counter.path, counter.published) : read.status;
    }
}

PdhStatus PerformanceData::Find(const Machine& machine, const CounterPath& path, PublishedCounter& found)
{
    auto status = Pdh::NoObject;
    for (const auto& counter : machine.published) {
        if (!IsSame(counter.object, path.object)) continue;
        const bool isInstance =
            IsSame(counter.instance, path.instance) && path.parentInstance.empty() && path.instanceIndex == 0;
        if (isInstance && IsSame(counter.name, path.counter)) {
            found = counter;
            return Pdh::Good;
        }
        if (isInstance) status = Pdh::NoCounter;
        if (status == Pdh::NoObject) status = Pdh::NoInstance;
    }
    return status;
}

PerformanceData::Query* PerformanceData::QueryOf(QueryHandle handle)
{
    const auto at = m_queries.find(handle);
    return at == m_queries.end() ? nullptr : &at->second;
}

const PerformanceData::Counter* PerformanceData::CounterOf(CounterHandle handle) const
{
    for (const auto& [queryHandle, query] : m_queries)
        if (const auto at = query.counters.find(handle); at != query.counters.end()) return &at->second;
    return nullptr;
}

PdhStatus PerformanceData::OpenQuery(QueryHandle& query)
{
    if (m_queries.size() >= kMostQueries) return Pdh::OutOfMemory;
    query = ++m_lastHandle;
    m_queries.emplace(query, Query());
    return Pdh::Good;
}

PdhStatus PerformanceData::CloseQuery(QueryHandle query)
{
    if (m_queries.erase(query) == 0) return Pdh::InvalidHandle;
    if (m_queries.empty()) m_source.Leave();
    return Pdh::Good;
}

// Reads a machine of the query. Messages may run meanwhile, so the query may be gone afterwards.
PdhStatus PerformanceData::Read(QueryHandle handle, std::size_t machine)
{
    auto* query = QueryOf(handle);
    if (query->isBeingRead) return Pdh::Retry;
    query->isBeingRead = true;
    auto reading = m_source.Read(std::string(query->machines[machine].name));
    query = QueryOf(handle);
    if (query == nullptr) return Pdh::InvalidHandle;
    query->isBeingRead = false;
    auto& read = query->machines[machine];
    read.status = reading ? Pdh::Good : StatusOf(reading.error());
    if (reading) read.published = std::move(*reading);
    return read.status;
}

PdhStatus PerformanceData::AddCounter(QueryHandle handle, std::string_view path, CounterHandle& counter)
{
    auto* query = QueryOf(handle);
    if (query == nullptr) return Pdh::InvalidHandle;
    CounterPath parsed;
    if (const auto status = ParseCounterPath(path, parsed); status != Pdh::Good) return status;
    const auto machine = query->MachineNamed(parsed.machine);
    auto status = query->machines[machine].status;
    if (status == Pdh::NotValidated) {
        status = Read(handle, machine);
        query = QueryOf(handle);
    }
    if (status != Pdh::Good) return status;
    PublishedCounter published;
    status = Find(query->machines[machine], parsed, published);
    if (status != Pdh::Good) return status;
    counter = ++m_lastHandle;
    query->counters.emplace(counter, Counter{std::move(parsed), std::string(path), machine, published});
    return Pdh::Good;
}

PdhStatus PerformanceData::CollectQueryData(QueryHandle handle)
{
    auto* query = QueryOf(handle);
    if (query == nullptr) return Pdh::InvalidHandle;
    if (query->isBeingRead) return Pdh::Retry;
    if (query->counters.empty()) return Pdh::NoData;
    for (std::size_t machine = 0; machine < query->machines.size(); ++machine) {
        if (!query->HasCountersOf(machine)) continue;
        const auto status = Read(handle, machine);
        query = QueryOf(handle);
        if (query == nullptr) return status;
        query->Update(machine);
    }
    const auto isGood = [](const auto& entry) { return entry.second.status == Pdh::Good; };
    const auto& counters = query->counters;
    if (std::any_of(counters.begin(), counters.end(), isGood)) return Pdh::Good;
    return counters.begin()->second.status;
}

PdhStatus PerformanceData::GetDoubleCounterValue(CounterHandle handle, double& value) const
{
    const auto* counter = CounterOf(handle);
    if (counter == nullptr) return Pdh::InvalidHandle;
    if (counter->status != Pdh::Good) return Pdh::InvalidData;
    value = counter->published.value;
    return Pdh::Good;
}

PdhStatus PerformanceData::GetCounterInfo(CounterHandle handle, bool withExplainText, CounterInfo& info) const
{
    const auto* counter = CounterOf(handle);
    if (counter == nullptr) return Pdh::InvalidHandle;
    const auto& published = counter->published;
    if (withExplainText && !published.explainText) return Pdh::NoExplainText;
    info = {};
    info.type = published.type;
    info.status = counter->status;
    info.fullPath = counter->fullPath;
    info.machine = counter->path.machine;
    info.object = published.object;
    info.instance = published.instance;
    info.counterName = published.name;
    if (withExplainText) info.explainText = *published.explainText;
    return Pdh::Good;
}
