#include "zentrel/remote/RemoteSession.h"

#include "zentrel/CachedFile.h"
#include "zentrel/remote/Limits.h"
#include "zentrel/remote/RemoteCacheFile.h"
#include "zentrel/remote/RemoteStream.h"
#include "zentrel/remote/Replies.h"

namespace zentrel {

namespace {

using Stub = Connection::Stub;
constexpr const char* kSource = "ZentrelAdmin";

Done CheckSent(std::string_view path)
{
    if (path.size() > Limit::Path) return Fail(Code::InvalidName, kSource);
    return {};
}

v1::KeyRequest KeyAt(std::string_view path)
{
    v1::KeyRequest request;
    request.set_path(path.data(), path.size());
    return request;
}

template <class Reply>
Done Outcome(const Result<Reply>& reply)
{
    if (!reply) return Fail(reply.error());
    return {};
}

// Follows a deletion until it is done. News that tell nothing new are borne for a while only.
Done Follow(ReplyStream<v1::DeleteProgress>& news, const Connection& connection)
{
    Waiting waiting(connection.Hook());
    std::uint64_t deleted = 0;
    int idle = 0;
    for (int count = 0; count < Limit::News && idle < Limit::IdleNews; ++count) {
        const auto message = news.Next(waiting, Waiting::Clock::now() + connection.Waits().news);
        if (!message) return Fail(message.error());
        if (*message == nullptr) return SenselessReply();  // over, and not done
        if ((*message)->is_done()) return {};
        idle = (*message)->deleted() > deleted ? 0 : idle + 1;
        deleted = (*message)->deleted();
    }
    return Fail(Code::Timeout, kSource);
}

}  // namespace

RemoteSession::RemoteSession(std::shared_ptr<Connection> connection, std::string name, bool isLocal)
    : m_connection(std::move(connection)),
      m_name(std::move(name)),
      m_isLocal(isLocal)
{
}

Done RemoteSession::OpenKey(std::string_view path)
{
    if (const auto sent = CheckSent(path); !sent) return sent;
    const auto connection = m_connection;
    return Outcome(connection->Ask(&Stub::PrepareAsyncOpenKey, KeyAt(path), connection->Waits().read));
}

Result<std::uint32_t> RemoteSession::CountKeys(std::string_view path, View view)
{
    if (const auto sent = CheckSent(path); !sent) return Fail(sent.error());
    v1::KeysRequest request;
    request.set_path(path.data(), path.size());
    request.set_cache_view(view == View::Cache);
    const auto connection = m_connection;
    const auto reply = connection->Ask(&Stub::PrepareAsyncCountKeys, request, connection->Waits().read);
    if (!reply) return Fail(reply.error());
    if (reply->count() > Limit::Names) return SenselessReply();
    return reply->count();
}

Result<KeyPage> RemoteSession::ListKeys(std::string_view path, View view, std::string_view after,
                                        std::uint32_t most)
{
    if (const auto sent = CheckSent(path); !sent) return Fail(sent.error());
    v1::ListKeysRequest request;
    request.set_path(path.data(), path.size());
    request.set_cache_view(view == View::Cache);
    request.set_after(after.data(), after.size());
    request.set_most(most);
    const auto connection = m_connection;
    const auto enumerations = m_enumerations;
    auto reply = connection->Ask(&Stub::PrepareAsyncListKeys, request, connection->Waits().read);
    if (!reply) return Fail(reply.error());
    KeyPage page;
    page.isLast = reply->is_last();
    page.names.assign(std::make_move_iterator(reply->mutable_names()->begin()),
                      std::make_move_iterator(reply->mutable_names()->end()));
    if (const auto checked = enumerations->Check(path, view, after, most, page); !checked)
        return Fail(checked.error());
    return page;
}

Result<std::optional<Record>> RemoteSession::GetData(std::string_view path, PropertyId id)
{
    if (const auto sent = CheckSent(path); !sent) return Fail(sent.error());
    v1::GetDataRequest request;
    request.set_path(path.data(), path.size());
    request.set_property(id);
    const auto connection = m_connection;
    const auto reply = connection->Ask(&Stub::PrepareAsyncGetData, request, connection->Waits().read);
    if (!reply) return Fail(reply.error());
    return ReadRecord(*reply, id);
}

Result<std::unique_ptr<SubtreeStream>> RemoteSession::OpenSubtree(std::string_view path)
{
    if (const auto sent = CheckSent(path); !sent) return Fail(sent.error());
    if (m_connection->IsLost()) return Fail(Code::ServerUnavailable, kSource);
    return RemoteStream::Open(m_connection, path);
}

Done RemoteSession::DeleteEntry(std::string_view path)
{
    if (const auto sent = CheckSent(path); !sent) return sent;
    const auto connection = m_connection;
    return Outcome(connection->Ask(&Stub::PrepareAsyncDeleteEntry, KeyAt(path), connection->Waits().news));
}

Done RemoteSession::DeleteTree(std::string_view path)
{
    if (const auto sent = CheckSent(path); !sent) return sent;
    const auto connection = m_connection;
    if (connection->IsLost()) return Fail(Code::ServerUnavailable, kSource);
    ReplyStream<v1::DeleteProgress> news(connection, &Stub::PrepareAsyncDeleteTree, KeyAt(path),
                                         connection->Waits().deletion);
    return Follow(news, *connection);
}

Result<std::string> RemoteSession::GetCacheDir()
{
    const auto connection = m_connection;
    auto reply = connection->Ask(&Stub::PrepareAsyncGetCacheDir, v1::Nothing(), connection->Waits().read);
    if (!reply) return Fail(reply.error());
    if (reply->path().size() > Limit::CacheDir) return SenselessReply();
    return std::move(*reply->mutable_path());
}

Result<std::unique_ptr<CacheFileReader>> RemoteSession::OpenCacheFile(std::string_view path)
{
    if (!CachedFile::Parse(path)) return Fail(Code::InvalidName, kSource);
    if (m_connection->IsLost()) return Fail(Code::ServerUnavailable, kSource);
    return RemoteCacheFile::Open(m_connection, path);
}

Done RemoteSession::ResetCounters()
{
    const auto connection = m_connection;
    return Outcome(
        connection->Ask(&Stub::PrepareAsyncResetCounters, v1::Nothing(), connection->Waits().change));
}

Result<CounterTotals> RemoteSession::ReadCounters()
{
    const auto connection = m_connection;
    const auto reply =
        connection->Ask(&Stub::PrepareAsyncReadCounters, v1::Nothing(), connection->Waits().read);
    if (!reply) return Fail(reply.error());
    if (reply->totals().size() > Limit::Counters) return SenselessReply();
    auto totals = UnpackCounters(std::as_bytes(std::span(reply->totals())));
    totals.elapsedTicks = reply->elapsed();
    return totals;
}

}  // namespace zentrel
