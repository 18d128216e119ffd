#pragma once

#include "zentrel/Session.h"
#include "zentrel/remote/Connection.h"
#include "zentrel/remote/Enumerations.h"

namespace zentrel {

// A session that asks a server over a connection. Every reply is checked before it is believed.
class RemoteSession : public Session {
public:
    RemoteSession(std::shared_ptr<Connection> connection, std::string name, bool isLocal);

    std::string ServerName() const override { return m_name; }
    bool IsLocal() const override { return m_isLocal; }

    Done OpenKey(std::string_view path) override;
    Result<std::uint32_t> CountKeys(std::string_view path, View view) override;
    Result<KeyPage> ListKeys(std::string_view path, View view, std::string_view after,
                             std::uint32_t most) override;
    Result<std::optional<Record>> GetData(std::string_view path, PropertyId id) override;
    Result<std::unique_ptr<SubtreeStream>> OpenSubtree(std::string_view path) override;

    Done DeleteEntry(std::string_view path) override;
    Done DeleteTree(std::string_view path) override;
    Result<std::string> GetCacheDir() override;
    Result<std::unique_ptr<CacheFileReader>> OpenCacheFile(std::string_view path) override;
    Done ResetCounters() override;
    Result<CounterTotals> ReadCounters() override;

private:
    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<Enumerations> m_enumerations = std::make_shared<Enumerations>();
    std::string m_name;
    bool m_isLocal;
};

}  // namespace zentrel
