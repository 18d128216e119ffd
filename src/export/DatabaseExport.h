#pragma once

#include "export/ExportPlan.h"
#include "export/ExportQueue.h"

#include "base/DateTime.h"
#include "base/SystemError.h"
#include "platform/Odbc.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the row of a run says besides the numbers of its rows.
struct ExportStamp {
    std::string server;
    DateTime scannedAt;   // local time
    DateTime exportedAt;  // local time
    std::string program;  // its name and version
};

// How far an export is. The export writes, any thread reads and may ask it to stop.
struct ExportProgress {
    std::atomic<std::int64_t> rows = 0;    // written
    std::atomic<std::uint64_t> steps = 0;  // calls that the database has answered
    std::atomic<bool> isCommitting = false;
    std::atomic<bool> isCancelled = false;
};

struct ExportOutcome {
    enum class Remains {
        Everything,  // the export is in the database
        Nothing,     // the transaction was undone, or not begun
        Pending,     // the database does not answer; it undoes the transaction once it does
        Unknown,     // the database went away while it was to keep the transaction
    };

    Remains remains = Remains::Nothing;
    std::optional<SystemError> error;     // why it failed; code Cancelled when it was asked to stop
    std::int64_t run = 0;                 // the number of this export
    PerTable<std::int64_t> rows;          // written, and undone again when nothing remains
    std::vector<std::string> madeTables;  // new ones; when nothing remains: those that stayed, empty
};

// Writes one run in one transaction: makes the tables that are missing, then all rows. The queue's rows must
// belong to the plan's tables. What fails is rolled back before this returns.
ExportOutcome RunExport(OdbcConnection& database, const ExportPlan& plan, const ExportStamp& stamp,
                        ExportQueue& queue, ExportProgress& progress);
