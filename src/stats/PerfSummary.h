#pragma once

#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "format/FormatLocale.h"
#include "stats/modPerfCntr.h"

#include <functional>
#include <span>
#include <string>

struct SummaryRow {
    std::string caption;
    bool isRed = false;  // the value's colour
};

// The panel that shows the summary.
class SummaryScreen {
public:
    virtual ~SummaryScreen() = default;
    virtual void BuildRows(std::span<const SummaryRow> rows) = 0;  // those from before are used again
    virtual std::size_t RowCount() const = 0;
    virtual void ShowValue(std::size_t row, const std::string& text) = 0;
    virtual void SetCaption(const std::string& caption) = 0;
};

struct SummaryHost {
    SummaryScreen& screen;
    MessageBoxes& boxes;
    MessagePump& pump;
    std::function<std::string()> title;  // of message boxes: the main window's caption
};

// Shows the counters of the connected server. Whatever the user does while messages run, closing or replacing
// the query included, an update never shows a counter that is gone.
class PerfSummary {
public:
    PerfSummary(modPerfCntr& counters, FormatLocale locale, SummaryHost host)
        : m_counters(counters),
          m_locale(std::move(locale)),
          m_host(std::move(host))
    {
    }

    // A row for each counter, without a value yet; without counters none, whatever another server had.
    void BuildPerfRows();
    // The rows that were built show that there are no values.
    void ShowNoFigures();

    // Collects and shows all values and the boost. A failed collection is told once; the values that were
    // there stay. Lets messages run after each row. What comes for the same query meanwhile is left out, so
    // that a server that takes long is not asked more often than it answers.
    void UpdatePerfSummary();
    void ForgetCollectionWarning() { m_isWarned = false; }

private:
    struct Boost;
    void CollectOrWarn();
    bool ShowRows(Boost& boost);
    bool ShowRow(int row, Boost& boost);

    modPerfCntr& m_counters;
    const FormatLocale m_locale;
    const SummaryHost m_host;
    bool m_hasRows = false;
    bool m_isWarned = false;
    QueryHandle m_updating = 0;  // the query of the update that runs
};
