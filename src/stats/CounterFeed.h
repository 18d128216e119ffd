#pragma once

#include "stats/CounterList.h"
#include "stats/InitPerfCounters.h"
#include "stats/modPerfCntr.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What there is to say of a counter of the list.
struct CounterDescription {
    std::string label;
    std::string name;  // as the server calls it
    std::uint32_t type = PdhType::RawCount;
    std::string explainText;
};

struct CounterReading {
    bool isCurrent = true;       // false: another server was chosen or the feed closed meanwhile
    std::vector<double> values;  // by row of the list; NaN where there is none
    std::string trouble;         // why values cannot be had, for the user; empty when all are there
};

// The counters of a server, read through a query of its own beside any other. A reading is one round trip
// for all counters, the first of a query two; how long that may take is the source's matter. A server that
// could not be read is asked again by the next reading.
//
// A reading may let messages run, and those may call anything here but Read. When they may drop the feed,
// the caller keeps it alive until Read returns.
class CounterFeed {
public:
    CounterFeed(PerformanceData& library, CounterList list);  // the library must outlive this
    ~CounterFeed() { Close(); }
    CounterFeed(const CounterFeed&) = delete;
    CounterFeed& operator=(const CounterFeed&) = delete;

    void SetServer(std::optional<CounterServer> server);  // empty: there is no connection
    bool HasServer() const { return m_server.has_value(); }
    void Close();  // gives the query back; the next reading opens another
    CounterReading Read();

    // By row of the list; what the program knows until a server says otherwise.
    const std::vector<CounterDescription>& Rows() const { return m_rows; }

private:
    void Hold();
    void CloseCounters();
    void Open();
    void TakeDescriptions();
    void Collect(CounterReading& reading);

    PerformanceData& m_library;
    const CounterList m_list;
    std::vector<CounterDescription> m_rows;
    modPerfCntr m_counters;
    QueryHandle m_held = 0;            // empty; open as long as a server is read
    std::vector<std::size_t> m_rowOf;  // of each counter of the query
    std::optional<CounterServer> m_server;
    std::string m_missing;  // why some counters could not be added
    unsigned m_changes = 0;
};
