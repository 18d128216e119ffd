#include "stats/CounterFeed.h"

#include "base/Translate.h"
#include "stats/CounterExplanations.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

// Keeps the message that would have been shown.
struct QuietBoxes : MessageBoxes {
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string&) override
    {
        last = text;
        return BoxAnswer::Ok;
    }
    std::string last;
};

struct NoPump : MessagePump {
    void Run() override {}
};

struct NoPointer : ScreenPointer {
    int Get() const override { return Default; }
    void Set(int) override {}
};

CounterDescription Describe(const CounterRow& row)
{
    CounterDescription description;
    description.name = row.path.substr(row.path.rfind('\\') + 1);
    description.label = row.label.empty() ? description.name : row.label;
    if (const auto explanation = ExplainCounter(description.name)) {
        description.type = explanation->type;
        description.explainText = explanation->text;
    }
    return description;
}

}  // namespace

CounterFeed::CounterFeed(PerformanceData& library, CounterList list)
    : m_library(library),
      m_list(std::move(list)),
      m_counters(library)
{
    for (const auto& row : m_list) m_rows.push_back(Describe(row));
}

void CounterFeed::SetServer(std::optional<CounterServer> server)
{
    Close();
    m_server = std::move(server);
}

void CounterFeed::Close()
{
    ++m_changes;
    CloseCounters();
    if (m_held != 0) m_library.CloseQuery(std::exchange(m_held, 0));
}

// While no query is open, the source forgets which host kept it waiting, and would wait for it at each new
// one.
void CounterFeed::Hold()
{
    if (m_held == 0 && !Pdh::IsGoodStatus(m_library.OpenQuery(m_held))) m_held = 0;
}

void CounterFeed::CloseCounters()
{
    if (m_counters.Query() != 0) static_cast<void>(m_counters.CloseQuery());
}

CounterReading CounterFeed::Read()
{
    CounterReading reading;
    reading.values.assign(m_rows.size(), std::numeric_limits<double>::quiet_NaN());
    if (!m_server) {
        reading.trouble = Translate("CounterFeed", "There is no connection to a server.");
        return reading;
    }
    const auto changes = m_changes;
    Hold();
    if (m_counters.UpperBound() < 0) CloseCounters();
    if (m_counters.Query() == 0) Open();
    if (changes == m_changes && m_counters.UpperBound() >= 0) Collect(reading);
    reading.isCurrent = changes == m_changes;
    if (reading.trouble.empty()) reading.trouble = m_missing;
    return reading;
}

void CounterFeed::Open()
{
    m_missing.clear();
    if (!m_counters.OpenQuery()) {
        m_missing = WithPdhError(Translate("CounterFeed", "Cannot open performance collection library"),
                                 m_counters.LastStatus(), m_counters.LastText());
        return;
    }
    const auto changes = m_changes;
    const auto server = *m_server;
    QuietBoxes boxes;
    NoPump pump;
    NoPointer pointer;
    InitPerfCounters(m_counters, m_list, server, {}, {boxes, pump, pointer});
    if (changes != m_changes) return;
    m_missing = boxes.last;
    if (m_counters.UpperBound() < 0)
        m_missing = WithPdhError(Translate("CounterFeed", "The performance counters cannot be read."),
                                 m_counters.LastStatus(), m_counters.LastText());
    TakeDescriptions();
}

void CounterFeed::TakeDescriptions()
{
    m_rowOf.clear();
    for (const auto& counter : m_counters.Counters()) {
        const auto at = std::find_if(m_rows.begin(), m_rows.end(),
                                     [&](const auto& row) { return row.label == counter.label; });
        m_rowOf.push_back(static_cast<std::size_t>(at - m_rows.begin()));
        if (counter.info.counterName.empty()) continue;
        at->name = counter.info.counterName;
        at->type = counter.info.type;
        at->explainText = counter.info.explainText;
    }
}

void CounterFeed::Collect(CounterReading& reading)
{
    const auto changes = m_changes;
    const bool isCollected = m_counters.CollectData();
    if (changes != m_changes) return;
    if (!isCollected) {
        reading.trouble = WithPdhError(Translate("CounterFeed", "Cannot collect performance data"),
                                       m_counters.LastStatus(), m_counters.LastText());
        return;
    }
    for (std::size_t i = 0; i < m_rowOf.size(); ++i)
        static_cast<void>(m_counters.GetCounterValue(static_cast<int>(i), reading.values[m_rowOf[i]]));
}
