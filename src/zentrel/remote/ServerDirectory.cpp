#include "zentrel/remote/ServerDirectory.h"

#include "base/Text.h"
#include "zentrel/remote/KnownServers.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zentrel {

namespace {

constexpr std::size_t kMostWays = 16;

// Whether somebody accepts connections there that this user may make.
bool ListensAt(const std::filesystem::path& socket)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket.native().size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, socket.c_str(), socket.native().size());
    const int handle = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (handle < 0) return false;
    const int status = ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    const bool listens = status == 0 || errno == EAGAIN;  // EAGAIN: many are waiting
    ::close(handle);
    return listens;
}

// A session under the name that somebody asked for.
class NamedSession : public Session {
public:
    NamedSession(std::shared_ptr<Session> real, std::string_view name) : m_real(std::move(real)), m_name(name)
    {
    }

    std::string ServerName() const override { return m_name; }
    bool IsLocal() const override { return m_real->IsLocal(); }
    Done OpenKey(std::string_view path) override { return m_real->OpenKey(path); }
    Result<std::uint32_t> CountKeys(std::string_view path, View view) override
    {
        return m_real->CountKeys(path, view);
    }
    Result<KeyPage> ListKeys(std::string_view path, View view, std::string_view after,
                             std::uint32_t most) override
    {
        return m_real->ListKeys(path, view, after, most);
    }
    Result<std::optional<Record>> GetData(std::string_view path, PropertyId id) override
    {
        return m_real->GetData(path, id);
    }
    Result<std::unique_ptr<SubtreeStream>> OpenSubtree(std::string_view path) override
    {
        return m_real->OpenSubtree(path);
    }
    Done DeleteEntry(std::string_view path) override { return m_real->DeleteEntry(path); }
    Done DeleteTree(std::string_view path) override { return m_real->DeleteTree(path); }
    Result<std::string> GetCacheDir() override { return m_real->GetCacheDir(); }
    Result<std::unique_ptr<CacheFileReader>> OpenCacheFile(std::string_view path) override
    {
        return m_real->OpenCacheFile(path);
    }
    Done ResetCounters() override { return m_real->ResetCounters(); }
    Result<CounterTotals> ReadCounters() override { return m_real->ReadCounters(); }

private:
    std::shared_ptr<Session> m_real;
    std::string m_name;
};

}  // namespace

std::vector<std::filesystem::path> LocalSockets(const std::filesystem::path& dataFolder)
{
    return {"/run/zentrel/admin.sock", "/run/zentrel/viewer.sock", dataFolder / "admin.sock"};
}

ServerDirectory::ServerDirectory(std::shared_ptr<Transport> embedded, ServerPlaces places,
                                 WhileWaiting whileWaiting, Deadlines deadlines)
    : m_embedded(std::move(embedded)),
      m_places(std::move(places)),
      m_whileWaiting(std::move(whileWaiting)),
      m_deadlines(deadlines)
{
}

bool ServerDirectory::IsThisMachine(std::string_view name) const
{
    if (name.empty() || name == ".") return true;
    const bool isOwn = name == "127.0.0.1" || name == "::1" || CompareFolded(name, "localhost") == 0 ||
                       CompareFolded(name, m_embedded->LocalName()) == 0;
    if (!isOwn) return false;
    const auto known = KnownServers::Read(m_places.knownServers);
    return !known || !known->Has(name);
}

std::shared_ptr<Transport> ServerDirectory::LocalWay() const
{
    for (const auto& socket : m_places.sockets) {
        if (!ListensAt(socket)) continue;
        RemoteTarget target;
        target.socket = socket;
        return std::make_shared<RemoteTransport>(std::move(target), m_whileWaiting, m_deadlines);
    }
    return m_embedded;
}

Result<std::shared_ptr<Transport>> ServerDirectory::FindWay(std::string_view name) const
{
    if (IsThisMachine(name)) return LocalWay();
    const auto known = KnownServers::Read(m_places.knownServers);
    if (!known) return Fail(known.error());
    auto target = known->Target(name);
    if (!target) return Fail(target.error());
    return std::shared_ptr<Transport>(
        std::make_shared<RemoteTransport>(std::move(*target), m_whileWaiting, m_deadlines));
}

void ServerDirectory::Remember(std::string_view name, std::shared_ptr<Transport> way)
{
    if (m_ways.size() >= kMostWays || way == m_embedded) m_ways.clear();
    if (way != m_embedded) m_ways.insert_or_assign(std::string(name), std::move(way));
}

Result<std::shared_ptr<Session>> ServerDirectory::Connect(std::string_view server)
{
    const std::string name(server);
    const auto way = FindWay(name);
    if (!way) return Fail(way.error());
    auto session = (*way)->Connect(*way == m_embedded ? std::string_view() : name);
    if (!session) return session;
    Remember(name, *way);
    const auto shown = name.empty() ? LocalName() : name;
    if ((*session)->ServerName() == shown) return session;
    return std::shared_ptr<Session>(std::make_shared<NamedSession>(std::move(*session), shown));
}

Result<std::unique_ptr<ServiceManager>> ServerDirectory::OpenServiceManager(std::string_view machine,
                                                                            std::uint32_t access)
{
    machine.remove_prefix(std::min(machine.find_first_not_of('\\'), machine.size()));
    const std::string name(machine);
    if (const auto at = m_ways.find(name); at != m_ways.end()) {
        const auto way = at->second;
        return way->OpenServiceManager(name, access);
    }
    const auto way = FindWay(name);
    if (!way && way.error().Is(Code::AccessDenied)) return Fail(Code::AccessDenied, "Services");
    if (!way) return Fail(Code::ServerUnavailable & 0xFFFFU, "Services", way.error().description);
    auto manager = (*way)->OpenServiceManager(name, access);
    if (manager) Remember(name, *way);
    return manager;
}

}  // namespace zentrel
