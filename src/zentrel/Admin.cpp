#include "zentrel/Admin.h"

#include "base/Text.h"
#include "zentrel/SubtreeWindow.h"

#include <algorithm>

namespace zentrel {

Done ServerAdmin::Connect(std::string_view server)
{
    auto session = m_transport->Connect(server);
    if (!session) return Fail(session.error());
    m_session = std::move(*session);
    m_window.reset();  // it shows another server
    return {};
}

std::string ServerAdmin::ServerName() const
{
    return m_session != nullptr ? m_session->ServerName() : m_transport->LocalName();
}

bool ServerAdmin::IsLocal() const
{
    return m_session == nullptr || m_session->IsLocal();
}

Result<Session*> ServerAdmin::Connected() const
{
    if (m_session == nullptr) return Fail(Code::ServerUnavailable, "ZentrelAdmin");
    return m_session.get();
}

Done ServerAdmin::OpenKey(std::string_view path)
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    return (*session)->OpenKey(path);
}

Result<KeyCollection> ServerAdmin::EnumKeys(std::string_view path)
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    const auto trimmed = TrimSlashes(path);
    if (m_window != nullptr && m_view == View::Cache) {
        if (const auto key = m_window->Find(trimmed)) {
            if (key->childCount == 0) return KeyCollection();
            return KeyCollection(m_session, m_window, trimmed);
        }
    }
    const auto count = (*session)->CountKeys(trimmed, m_view);
    if (!count) return Fail(count.error());
    return KeyCollection(m_session, m_view, trimmed, *count);
}

Result<std::optional<Record>> ServerAdmin::GetData(std::string_view path, PropertyId id)
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    const auto trimmed = TrimSlashes(path);
    if (m_window != nullptr) {
        if (const auto key = m_window->Find(trimmed)) {
            const auto property = FindProperty(key->properties, id);
            if (!property) return std::nullopt;
            return Record(*property);
        }
    }
    return (*session)->GetData(trimmed, id);
}

Done CacheAdmin::DeleteEntry(std::string_view path)
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    return (*session)->DeleteEntry(path);
}

Done CacheAdmin::DeleteTree(std::string_view path)
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    return (*session)->DeleteTree(path);
}

Result<std::string> CacheAdmin::GetCacheDir()
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    return (*session)->GetCacheDir();
}

Result<std::unique_ptr<CacheFileReader>> CacheAdmin::OpenCacheFile(std::string_view path)
{
    const auto session = Connected();
    if (!session) return Fail(session.error());
    std::string slashed(path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return (*session)->OpenCacheFile(slashed);
}

Done CacheAdmin::ResetCounters(int reserved)
{
    if (reserved != 0) return Fail(Code::InvalidParameter, "ZentrelAdmin");
    const auto session = Connected();
    if (!session) return Fail(session.error());
    return (*session)->ResetCounters();
}

ReadAhead::ReadAhead(CacheAdmin& cache, ServerAdmin& server, std::string_view path)
    : m_cache(cache),
      m_server(server)
{
    const auto session = cache.Connected();
    if (!session) return;
    auto stream = (*session)->OpenSubtree(path);
    if (!stream) return;
    cache.m_window = std::make_shared<SubtreeWindow>(std::move(*stream), TrimSlashes(path));
    if (server.m_session != nullptr && server.ServerName() == cache.ServerName())
        server.m_window = cache.m_window;
}

ReadAhead::~ReadAhead()
{
    m_cache.m_window.reset();
    m_server.m_window.reset();
}

}  // namespace zentrel
