#include "zentrel/remote/RemoteCacheFile.h"

#include "zentrel/remote/Replies.h"

namespace zentrel {

RemoteCacheFile::RemoteCacheFile(std::shared_ptr<Connection> connection, const v1::CacheFileRequest& request)
    : m_messages(connection, &Connection::Stub::PrepareAsyncReadCacheFile, request),
      m_patience(std::move(connection))
{
}

Result<std::unique_ptr<CacheFileReader>> RemoteCacheFile::Open(std::shared_ptr<Connection> connection,
                                                               std::string_view path)
{
    v1::CacheFileRequest request;
    request.set_path(path.data(), path.size());
    std::unique_ptr<RemoteCacheFile> file(new RemoteCacheFile(std::move(connection), request));
    if (const auto begun = file->Begin(); !begun) return Fail(begun.error());
    return std::unique_ptr<CacheFileReader>(std::move(file));
}

Done RemoteCacheFile::Begin()
{
    const auto first = m_patience.Next(m_messages);
    if (!first) return Fail(first.error());
    if (*first == nullptr || (*first)->size() > Limit::File) return SenselessReply();
    m_size = m_left = (*first)->size();
    return Keep(**first);
}

// The next part, or the end.
Done RemoteCacheFile::Fetch()
{
    const auto next = m_patience.Next(m_messages);
    if (!next) return Fail(next.error());
    if (*next == nullptr) {
        m_end = Done();
        return {};
    }
    if ((*next)->data().empty()) return SenselessReply();  // could go on for ever
    return Keep(**next);
}

Done RemoteCacheFile::Keep(v1::CacheFilePart& part)
{
    const auto size = part.data().size();
    if (size > Limit::FilePart || size > m_left) return SenselessReply();
    m_left -= size;
    m_patience.Brought(size);
    m_part = std::move(*part.mutable_data());
    m_read = 0;
    return {};
}

Result<Bytes> RemoteCacheFile::Read(std::size_t most)
{
    if (most == 0) return Fail(Code::InvalidParameter, "ZentrelAdmin");
    if (m_read == m_part.size() && !m_end)
        if (auto fetched = Fetch(); !fetched) {
            if (fetched.error().Is(Code::InvalidHandle)) return Fail(fetched.error());  // from its own hook
            m_end = std::move(fetched);
        }
    if (m_end && !*m_end) return Fail(m_end->error());
    const auto bytes = std::as_bytes(std::span(m_part)).subspan(m_read);
    const auto taken = bytes.first(std::min(most, bytes.size()));
    m_read += taken.size();
    return Bytes(taken.begin(), taken.end());
}

}  // namespace zentrel
