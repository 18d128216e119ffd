#include "stats/PerfSummary.h"

#include "base/Translate.h"
#include "stats/CounterList.h"
#include "stats/CounterText.h"

#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr std::string_view kNoValue = "---";
constexpr std::string_view kRed = "Bandwidth Savings";
constexpr std::string_view kCompressed = "Bytes Compressed";
constexpr std::string_view kEquivalent = "Bytes Uncompressed Equiv";

}  // namespace

// What the caption's boost is made of, as far as the counters are there.
struct PerfSummary::Boost {
    std::optional<double> compressed;
    std::optional<double> equivalent;
};

void PerfSummary::BuildPerfRows()
{
    std::vector<SummaryRow> rows;
    for (const auto& counter : m_counters.Counters())
        rows.push_back({CounterWords(counter.label) + ":", counter.label == kRed});
    m_host.screen.BuildRows(rows);
    m_hasRows = true;
    ShowNoFigures();
}

void PerfSummary::ShowNoFigures()
{
    if (!m_hasRows) return;
    for (std::size_t row = 0; row < m_host.screen.RowCount(); ++row)
        m_host.screen.ShowValue(row, std::string(kNoValue));
}

void PerfSummary::UpdatePerfSummary()
{
    const auto query = m_counters.Query();
    if (m_counters.UpperBound() < 0 || m_updating == query) return;
    const auto before = std::exchange(m_updating, query);
    CollectOrWarn();
    Boost boost;
    if (ShowRows(boost)) {
        const bool isKnown = boost.compressed && boost.equivalent;
        m_host.screen.SetCaption(isKnown ? SummaryCaption(*boost.equivalent, *boost.compressed, m_locale)
                                         : Translate("frmMain", kSummaryCaption));
    }
    m_updating = before;
}

void PerfSummary::CollectOrWarn()
{
    if (m_counters.CollectData() || m_isWarned || m_counters.Query() != m_updating) return;
    m_isWarned = true;
    m_host.boxes.Show(WithPdhError(Translate("PerfSummary", "Cannot collect performance data"),
                                   m_counters.LastStatus(), m_counters.LastText()),
                      BoxStyle::Exclamation, m_host.title());
}

// False when another query took the place of the one that is being shown.
bool PerfSummary::ShowRows(Boost& boost)
{
    for (int row = 0; row <= m_counters.UpperBound(); ++row) {
        if (m_counters.Query() != m_updating) return false;
        if (static_cast<std::size_t>(row) >= m_host.screen.RowCount()) break;
        if (!ShowRow(row, boost)) return false;
        m_host.pump.Run();
    }
    return m_counters.Query() == m_updating;
}

bool PerfSummary::ShowRow(int row, Boost& boost)
{
    double value = 0;
    static_cast<void>(m_counters.GetCounterValue(row, value));  // the last value stands when there is none
    if (m_counters.Query() != m_updating || row > m_counters.UpperBound()) return false;
    const auto index = static_cast<std::size_t>(row);
    const auto& counter = m_counters.Counters()[index];
    if (counter.label == kCompressed) boost.compressed = counter.value;
    if (counter.label == kEquivalent) boost.equivalent = counter.value;
    m_host.screen.ShowValue(index, CounterText(counter.value, counter.info.type, m_locale));
    return true;
}
