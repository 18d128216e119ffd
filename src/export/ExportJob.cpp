#include "export/ExportJob.h"

#include "base/Translate.h"

#include <mutex>
#include <utility>

namespace {

SystemError DoesNotAnswer()
{
    return {Code::Timeout, "Export", Translate("DatabaseExport", "The database does not answer.")};
}

}  // namespace

struct ExportJob::Shared {
    DatabaseAccess access;
    ExportPlan plan;
    ExportStamp stamp;
    std::shared_ptr<ExportQueue> queue;
    ExportProgress progress;
    std::atomic<bool> isConnected = false;

    std::mutex mutex;
    OdbcConnection* database = nullptr;  // while its calls can be stopped; guarded by the mutex

    void Offer(OdbcConnection* connection)
    {
        const std::lock_guard lock(mutex);
        database = connection;
    }
    void StopCall()
    {
        const std::lock_guard lock(mutex);
        if (database != nullptr) database->Cancel();
    }
};

ExportJob::ExportJob(const DatabaseAccess& access, SharedLogin login, const ExportPlan& plan,
                     const ExportStamp& stamp, const CacheSnapshot& snapshot)
    : m_access(access),
      m_feed(std::make_unique<ExportFeed>(snapshot, plan)),
      m_shared(std::make_shared<Shared>())
{
    m_shared->access = access;
    m_shared->plan = plan;
    m_shared->stamp = stamp;
    m_shared->queue = m_feed->Queue();
    m_job.emplace(
        [shared = m_shared, login = std::move(login)]() mutable { return Work(*shared, std::move(login)); });
}

ExportJob::~ExportJob()
{
    if (m_outcome) return;
    Cancel();
    m_feed.reset();
    m_job->Wait(m_access.farewell);
}

Result<ExportOutcome> ExportJob::Work(Shared& shared, SharedLogin login)
{
    auto opened = shared.access.open(*login, DriverPatience(shared.access.silence));
    login.reset();
    if (!opened) return Fail(opened.error());
    shared.isConnected = true;
    ++shared.progress.steps;
    auto& database = **opened;
    shared.Offer(&database);
    auto outcome = RunExport(database, shared.plan, shared.stamp, *shared.queue, shared.progress);
    shared.Offer(nullptr);
    return outcome;
}

// ---- seen from the owner

const ExportOutcome* ExportJob::Poll()
{
    if (m_outcome) return &*m_outcome;
    const auto now = Clock::now();
    if (m_job->IsDone()) {
        auto done = m_job->Take();
        ExportOutcome failed;
        if (!done) failed.error = done.error();
        End(done ? std::move(*done) : std::move(failed));
    } else if (m_stoppedAt) {
        if (now - *m_stoppedAt >= m_access.farewell || !IsConnected()) GiveUp();
    } else if (const auto steps = m_shared->progress.steps.load(); steps != m_steps) {
        m_steps = steps;
        m_lastStep = now;
    } else if (now - m_lastStep >= (IsConnected() ? m_access.silence : m_access.connecting)) {
        m_isSilent = true;
        Cancel();
    }
    return m_outcome ? &*m_outcome : nullptr;
}

void ExportJob::Cancel()
{
    if (m_outcome || m_stoppedAt) return;
    m_stoppedAt = Clock::now();
    m_shared->progress.isCancelled = true;
    m_shared->queue->Stop();
    m_shared->StopCall();
}

void ExportJob::End(ExportOutcome outcome)
{
    if (m_isSilent && outcome.error) outcome.error = DoesNotAnswer();
    m_outcome = std::move(outcome);
    m_feed.reset();
}

void ExportJob::GiveUp()
{
    ExportOutcome outcome;
    outcome.error = SystemError{Code::Cancelled, "Export", SystemText(Code::Cancelled)};
    if (m_shared->progress.isCommitting) {
        outcome.remains = ExportOutcome::Remains::Unknown;
    } else if (IsConnected()) {
        outcome.remains = ExportOutcome::Remains::Pending;
    }
    m_job->Abandon();
    End(std::move(outcome));
}

bool ExportJob::IsConnected() const
{
    return m_shared->isConnected;
}

bool ExportJob::IsCancelled() const
{
    return m_stoppedAt.has_value();
}

std::int64_t ExportJob::RowsWritten() const
{
    return m_shared->progress.rows;
}
