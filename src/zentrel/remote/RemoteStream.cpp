#include "zentrel/remote/RemoteStream.h"

#include "zentrel/remote/Limits.h"

namespace zentrel {

RemoteStream::RemoteStream(std::shared_ptr<Connection> connection, const v1::KeyRequest& request)
    : m_connection(std::move(connection)),
      m_messages(m_connection, &Connection::Stub::PrepareAsyncOpenSubtree, request)
{
}

Result<std::unique_ptr<SubtreeStream>> RemoteStream::Open(std::shared_ptr<Connection> connection,
                                                          std::string_view path)
{
    v1::KeyRequest request;
    request.set_path(path.data(), path.size());
    std::unique_ptr<RemoteStream> stream(new RemoteStream(std::move(connection), request));
    if (const auto begun = stream->Fetch(); !begun) return Fail(begun.error());
    return std::unique_ptr<SubtreeStream>(std::move(stream));
}

Done RemoteStream::Next(RowBatch& batch)
{
    if (!m_hasRows) {
        const auto fetched = m_isOver ? Done() : Fetch();
        if (!fetched) {
            m_isOver = true;
            batch.Clear();
            return fetched;
        }
    }
    m_hasRows = false;
    batch.Assign(std::move(m_rows));
    m_rows.clear();
    return {};
}

Done RemoteStream::Fetch()
{
    using std::chrono::duration_cast;
    const auto start = Waiting::Clock::now();
    const auto granted =
        m_connection->Waits().slow +
        std::chrono::milliseconds(static_cast<std::int64_t>(1000 * m_bytes / Limit::StreamRate));
    const auto left = std::min<Waiting::Clock::duration>(m_connection->Waits().stall, granted - m_waited);
    Waiting waiting(m_connection->Hook());
    auto message = m_messages.Next(waiting, start + left);
    if (!message) return Fail(message.error());
    m_waited += Waiting::Clock::now() - start;
    m_hasRows = true;
    if (*message == nullptr) {
        m_isOver = true;
        if (m_bytes == 0) return Fail(Code::InvalidData, "ZentrelAdmin");  // not even the key itself
        return {};
    }
    m_rows = std::move(*(*message)->mutable_rows());
    m_bytes += static_cast<double>(m_rows.size());
    if (m_rows.empty()) return Fail(Code::InvalidData, "ZentrelAdmin");  // would be the end
    return m_check.Check(m_rows);
}

}  // namespace zentrel
