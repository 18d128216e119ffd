#include "export/ExportQueue.h"

#include "export/ExportRows.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

// Cuts rows into chunks. False when nobody wants more.
class ChunkFiller {
public:
    explicit ChunkFiller(ExportQueue& queue) : m_queue(queue) {}

    bool Add(ExportTable table, const ExportRow& row)
    {
        m_chunk.table = table;
        const auto begin = m_chunk.rows++ * row.size();
        if (m_chunk.values.size() < begin + row.size()) m_chunk.values.resize(begin + row.size());
        std::copy(row.begin(), row.end(), m_chunk.values.begin() + static_cast<std::ptrdiff_t>(begin));
        return m_chunk.rows < ExportFeed::kChunkRows || Flush();
    }
    bool Flush() { return m_chunk.rows == 0 || m_queue.Put(m_chunk); }

private:
    ExportQueue& m_queue;
    ExportChunk m_chunk;
};

void ReadAll(const CacheSnapshot& snapshot, const std::vector<ExportTable>& tables, ExportQueue& queue)
{
    ChunkFiller filler(queue);
    for (const auto table : tables) {
        ForEachExportRow(table, snapshot, [&](const ExportRow& row) { return filler.Add(table, row); });
        if (!filler.Flush()) return;
    }
    queue.Finish();
}

}  // namespace

bool ExportQueue::Put(ExportChunk& chunk)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isStopped || m_waiting.size() < kRoom; });
    if (m_isStopped) return false;
    m_waiting.push_back(std::move(chunk));
    chunk = {};
    if (!m_used.empty()) {
        chunk = std::move(m_used.back());
        m_used.pop_back();
    }
    m_changed.notify_all();
    return true;
}

void ExportQueue::Finish()
{
    const std::lock_guard lock(m_mutex);
    m_isFinished = true;
    m_changed.notify_all();
}

bool ExportQueue::Take(ExportChunk& chunk)
{
    std::unique_lock lock(m_mutex);
    chunk.rows = 0;
    m_used.push_back(std::move(chunk));
    m_changed.wait(lock, [this] { return m_isStopped || m_isFinished || !m_waiting.empty(); });
    if (m_isStopped || m_waiting.empty()) return false;
    chunk = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_changed.notify_all();
    return true;
}

void ExportQueue::Stop()
{
    const std::lock_guard lock(m_mutex);
    m_isStopped = true;
    m_changed.notify_all();
}

bool ExportQueue::IsStopped() const
{
    const std::lock_guard lock(m_mutex);
    return m_isStopped;
}

bool ExportQueue::IsFinished() const
{
    const std::lock_guard lock(m_mutex);
    return m_isFinished;
}

ExportFeed::ExportFeed(const CacheSnapshot& snapshot, const ExportPlan& plan)
    : m_reader([queue = m_queue, &snapshot, tables = plan.Wanted()]() -> Done {
          try {
              ReadAll(snapshot, tables, *queue);
          } catch (...) {
              queue->Stop();  // the writer sees that rows are missing
          }
          return {};
      })
{
    if (m_reader.IsDone() && !m_queue->IsFinished()) m_queue->Stop();  // there was no thread to be had
}

ExportFeed::~ExportFeed()
{
    m_queue->Stop();
    while (!m_reader.Wait(std::chrono::hours(1))) {
    }
}
