#pragma once

#include "export/ExportPlan.h"
#include "platform/BackgroundJob.h"
#include "platform/Odbc.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

class CacheSnapshot;

// Some rows of one table, value after value, row after row.
struct ExportChunk {
    ExportTable table = ExportTable::Sites;
    std::size_t rows = 0;
    std::vector<OdbcValue> values;  // may be longer than the rows; their memory is used again
};

// Rows on their way from the thread that reads them to the one that writes them; a few chunks at most.
class ExportQueue {
public:
    // For the reader: waits for room. `chunk` comes back as one to fill. False when nobody wants more.
    bool Put(ExportChunk& chunk);
    void Finish();  // all rows were put

    // For the writer: waits for rows; `chunk`, done with, goes back. False at the end, and when stopped.
    bool Take(ExportChunk& chunk);

    void Stop();  // by anyone: what waits, ends
    bool IsStopped() const;
    bool IsFinished() const;

private:
    static constexpr std::size_t kRoom = 4;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<ExportChunk> m_waiting;
    std::vector<ExportChunk> m_used;
    bool m_isFinished = false;
    bool m_isStopped = false;
};

// Reads a snapshot on a thread of its own. Only this thread touches the snapshot, and this object's end
// waits for it, so that a database which never answers cannot keep the snapshot in use.
class ExportFeed {
public:
    static constexpr std::size_t kChunkRows = 64;

    ExportFeed(const CacheSnapshot& snapshot, const ExportPlan& plan);
    ~ExportFeed();
    ExportFeed(const ExportFeed&) = delete;
    ExportFeed& operator=(const ExportFeed&) = delete;

    const std::shared_ptr<ExportQueue>& Queue() const { return m_queue; }

private:
    std::shared_ptr<ExportQueue> m_queue = std::make_shared<ExportQueue>();
    BackgroundJob<void> m_reader;
};
