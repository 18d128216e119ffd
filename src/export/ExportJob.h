#pragma once

#include "export/DatabaseAccess.h"
#include "export/DatabaseExport.h"
#include "export/SecretText.h"

#include "platform/BackgroundJob.h"

#include <chrono>
#include <memory>
#include <optional>

class CacheSnapshot;

// An export from connecting to its end, beside the owner's thread, which polls it. A database that does not
// answer is told to stop, then left alone: its thread rolls back when the driver lets it, or the database
// does when the program ends.
class ExportJob {
public:
    // Starts at once. The snapshot is not read any more once the job is done or gone.
    ExportJob(const DatabaseAccess& access, SharedLogin login, const ExportPlan& plan,
              const ExportStamp& stamp, const CacheSnapshot& snapshot);
    ~ExportJob();  // cancels what is not done, and waits for it until the farewell is over
    ExportJob(const ExportJob&) = delete;
    ExportJob& operator=(const ExportJob&) = delete;

    // To be called a few times a second; keeps the deadlines. The outcome once there is one.
    const ExportOutcome* Poll();
    void Cancel();

    bool IsConnected() const;
    bool IsCancelled() const;
    std::int64_t RowsWritten() const;

private:
    using Clock = std::chrono::steady_clock;
    struct Shared;

    static Result<ExportOutcome> Work(Shared& shared, SharedLogin login);
    void End(ExportOutcome outcome);
    void GiveUp();

    const DatabaseAccess m_access;
    std::unique_ptr<ExportFeed> m_feed;
    std::shared_ptr<Shared> m_shared;  // with the thread
    std::optional<BackgroundJob<ExportOutcome>> m_job;
    std::optional<ExportOutcome> m_outcome;

    std::uint64_t m_steps = 0;
    Clock::time_point m_lastStep = Clock::now();
    std::optional<Clock::time_point> m_stoppedAt;
    bool m_isSilent = false;  // stopped since it did not answer
};
