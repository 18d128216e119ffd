#pragma once

#include "zentrel/KeyCollection.h"
#include "zentrel/Session.h"

#include <memory>
#include <string>

namespace zentrel {

class SubtreeWindow;

// Reads a server's keys. A new object stands for the local machine but is not connected; until Connect
// succeeded every read fails with ServerUnavailable. A failed Connect keeps the connection there was.
// Paths are those of the metabase ("/LM/W3SVC/1/Root"); a slash more or less at either end does no harm.
class ServerAdmin {
public:
    explicit ServerAdmin(std::shared_ptr<Transport> transport) : m_transport(std::move(transport)) {}

    Done Connect(std::string_view server);
    std::string ServerName() const;
    bool IsLocal() const;

    Done OpenKey(std::string_view path);
    Result<KeyCollection> EnumKeys(std::string_view path);
    // Empty when the key has no such property.
    Result<std::optional<Record>> GetData(std::string_view path, PropertyId id);

protected:
    friend class ReadAhead;

    ServerAdmin(std::shared_ptr<Transport> transport, View view)
        : m_transport(std::move(transport)),
          m_view(view)
    {
    }
    Result<Session*> Connected() const;

    std::shared_ptr<Transport> m_transport;
    std::shared_ptr<Session> m_session;
    std::shared_ptr<SubtreeWindow> m_window;  // while read-ahead is on
    View m_view = View::Server;
};

// Everything a ServerAdmin does, seen through the cache (keys that lead to no cached URL are not listed),
// and the operations on the cache.
class CacheAdmin : public ServerAdmin {
public:
    explicit CacheAdmin(std::shared_ptr<Transport> transport) : ServerAdmin(std::move(transport), View::Cache)
    {
    }

    Done DeleteEntry(std::string_view path);  // one cached URL with all its variants
    Done DeleteTree(std::string_view path);   // every entry at and below the path
    Result<std::string> GetCacheDir();        // a path on the server
    // As Session's; the path may have backslashes ("12\1234.gzip").
    Result<std::unique_ptr<CacheFileReader>> OpenCacheFile(std::string_view path);
    Done ResetCounters(int reserved);
};

// While it lives, reads along a walk from the top of `path` downwards are answered from a stream that the
// server sends ahead. Any other read still goes to the server, and all do once the object is gone. Where
// the server cannot send ahead, nothing changes but the time it takes.
class ReadAhead {
public:
    ReadAhead(CacheAdmin& cache, ServerAdmin& server, std::string_view path);
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

private:
    CacheAdmin& m_cache;
    ServerAdmin& m_server;
};

}  // namespace zentrel
