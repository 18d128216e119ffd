#pragma once

#include "platform/PerformanceData.h"
#include "stats/PdhStatusText.h"

#include <string>
#include <string_view>
#include <vector>

// A counter that could be added.
struct PerfCounter {
    CounterHandle handle = 0;
    CounterInfo info;  // its type, name and explain text; empty when they could not be read
    double value = 0;  // as last read; 0 until then
    std::string label;
};

// The performance counters of the connected server: one query, and the table of its counters in the order in
// which they were added. Every call answers whether it succeeded, and keeps the helper's status; a call may
// let messages run while a server is waited for, after which the table may be another one.
class modPerfCntr {
public:
    explicit modPerfCntr(PerformanceData& library) : m_library(library) {}  // which must outlive this

    bool OpenQuery();
    bool CloseQuery();  // empties the table; fails without an open query, and changes nothing then
    // An empty label means the path's last element. It is added also when its information cannot be read.
    bool AddCounter(std::string_view path, std::string_view label);
    bool CollectData();
    bool GetCounterValue(int index, double& value);  // on failure value and record stay as they are
    bool GetCounterInfo(int index);
    bool CheckStatus(PdhStatus status);

    QueryHandle Query() const { return m_query; }  // 0: none is open
    const std::vector<PerfCounter>& Counters() const { return m_counters; }
    int UpperBound() const { return static_cast<int>(m_counters.size()) - 1; }

    PdhStatus LastStatus() const { return m_lastStatus; }
    unsigned LastSeverity() const { return m_lastSeverity; }
    const std::string& LastText() const { return m_lastText; }  // empty when the status was good

private:
    PerfCounter* RecordAt(int index);

    PerformanceData& m_library;
    QueryHandle m_query = 0;
    std::vector<PerfCounter> m_counters;
    PdhStatus m_lastStatus = Pdh::Good;
    unsigned m_lastSeverity = 0;
    std::string m_lastText;
};
