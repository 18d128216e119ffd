#include "stats/modPerfCntr.h"

#include <utility>

namespace {

// The helper's texts end at their first NUL.
void CutAtNul(std::string& text)
{
    if (const auto end = text.find('\0'); end != std::string::npos) text.resize(end);
}

}  // namespace

bool modPerfCntr::OpenQuery()
{
    m_query = 0;
    return CheckStatus(m_library.OpenQuery(m_query));
}

bool modPerfCntr::CloseQuery()
{
    if (!CheckStatus(m_library.CloseQuery(m_query))) return false;
    m_counters.clear();
    m_query = 0;
    return true;
}

bool modPerfCntr::AddCounter(std::string_view path, std::string_view label)
{
    PerfCounter record;
    record.label = label.empty() ? path.substr(path.rfind('\\') + 1) : label;
    if (!CheckStatus(m_library.AddCounter(m_query, path, record.handle))) return false;
    m_counters.push_back(std::move(record));
    GetCounterInfo(UpperBound());
    return true;
}

bool modPerfCntr::CollectData()
{
    return CheckStatus(m_library.CollectQueryData(m_query));
}

bool modPerfCntr::GetCounterValue(int index, double& value)
{
    auto* record = RecordAt(index);
    double read = 0;
    if (!CheckStatus(m_library.GetDoubleCounterValue(record ? record->handle : 0, read)) || !record)
        return false;
    record->value = value = read;
    return true;
}

bool modPerfCntr::GetCounterInfo(int index)
{
    auto* record = RecordAt(index);
    CounterInfo info;
    if (!CheckStatus(m_library.GetCounterInfo(record ? record->handle : 0, true, info)) || !record)
        return false;
    for (auto* text : {&info.fullPath, &info.machine, &info.object, &info.instance, &info.parentInstance,
                       &info.counterName, &info.explainText})
        CutAtNul(*text);
    record->info = std::move(info);
    return true;
}

bool modPerfCntr::CheckStatus(PdhStatus status)
{
    m_lastStatus = status;
    m_lastSeverity = status >> 30;
    const bool isGood = Pdh::IsGoodStatus(status);
    m_lastText = isGood ? std::string() : PdhStatusText(status);
    return isGood;
}

PerfCounter* modPerfCntr::RecordAt(int index)
{
    if (index < 0 || index > UpperBound()) return nullptr;
    return &m_counters[static_cast<std::size_t>(index)];
}
