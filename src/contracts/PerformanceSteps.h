#pragma once

#include "base/Result.h"

// What a connection does with the performance data of the server that it binds to, step by step.
class PerformanceSteps {
public:
    virtual ~PerformanceSteps() = default;

    // Closes the query of an earlier connection and forgets its counters; fine when there is none.
    virtual void CloseQuery() = 0;
    // A failed collection is reported once again.
    virtual void ForgetCollectionWarning() = 0;
    // The timer that refreshes the figures; enabled, it fires only when an interval is set.
    virtual void EnableTimer(bool isEnabled) = 0;

    // Opens the query. Fails with the status code of the performance library, all 32 bits, and its text.
    virtual Done OpenQuery() = 0;
    // These run after a failed OpenQuery too, and tell the user themselves what they could not do.
    virtual void InitPerfCounters() = 0;
    virtual void BuildPerfRows() = 0;
    virtual void ResetToolTips() = 0;  // clears those of the summary, attaches those of the totals
    virtual void UpdatePerfSummary() = 0;

    // There are no figures for this connection: the rows that stand show "---".
    virtual void ShowNoFigures() = 0;
};
