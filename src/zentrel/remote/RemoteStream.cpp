#include "zentrel/remote/RemoteStream.h"

namespace zentrel {

RemoteStream::RemoteStream(std::shared_ptr<Connection> connection, const v1::KeyRequest& request)
    : m_messages(connection, &Connection::Stub::PrepareAsyncOpenSubtree, request),
      m_patience(std::move(connection))
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
    auto message = m_patience.Next(m_messages);
    if (!message) return Fail(message.error());
    m_hasRows = true;
    if (*message == nullptr) {
        m_isOver = true;
        if (m_isFirst) return Fail(Code::InvalidData, "ZentrelAdmin");  // not even the key itself
        return {};
    }
    m_rows = std::move(*(*message)->mutable_rows());
    m_isFirst = false;
    m_patience.Brought(m_rows.size());
    if (m_rows.empty()) return Fail(Code::InvalidData, "ZentrelAdmin");  // would be the end
    return m_check.Check(m_rows);
}

}  // namespace zentrel
