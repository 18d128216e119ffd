#include "zentrel/remote/AdminServer.h"

#include "zentrel/EmbeddedTransport.h"
#include "zentrel/remote/AdminEndpoint.h"
#include "zentrel/remote/Doorkeeper.h"
#include "zentrel/remote/KeepLibrary.h"
#include "zentrel/remote/ListenSocket.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::string_view kSource = "AdminServer";

bool IsSamePlace(const AdminListener& a, const AdminListener& b)
{
    return a.path == b.path && a.mode == b.mode && a.address == b.address && a.port == b.port &&
           a.role == b.role && a.tls.has_value() == b.tls.has_value();
}

ino_t FileNumber(const std::filesystem::path& path)
{
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

}  // namespace

Done CheckListener(const AdminListener& listener)
{
    if (listener.path.string().size() > kLongestSocketPath)
        return Fail(Code::InvalidName, kSource, "The path of the socket is too long.");
    if (!listener.path.empty()) return {};
    const auto isLoopback = IsLoopback(listener.address);
    if (!isLoopback) return Fail(isLoopback.error());
    if (listener.tls) return CheckTls(*listener.tls, TlsSide::Server);
    if (*isLoopback) return {};
    return Fail(Code::InvalidParameter, kSource,
                "Other machines reach " + listener.address + "; it needs certificates.");
}

class AdminServer::Parts {
public:
    explicit Parts(AdminOptions options) : m_options(std::move(options)) { KeepLibrary(); }
    ~Parts() { Stop(std::chrono::seconds(1)); }

    Done Start(std::shared_ptr<Service> service, std::shared_ptr<ServiceTable> services);
    Result<bool> Reload(const AdminOptions& options);
    void Stop(std::chrono::milliseconds grace);

    std::vector<std::uint16_t> ports;

private:
    struct SocketFile {
        std::filesystem::path path;
        ino_t number = 0;
    };

    Done Open(const AdminListener& listener);
    Result<FileHandle> Listen(const AdminListener& listener);

    AdminOptions m_options;
    AdminCore m_core;
    std::unique_ptr<Doorkeeper> m_keeper;
    std::vector<std::shared_ptr<TlsMaterial>> m_materials;  // one for each listener, some are none
    std::vector<std::unique_ptr<AdminEndpoint>> m_endpoints;
    std::vector<SocketFile> m_files;
};

Done AdminServer::Parts::Start(std::shared_ptr<Service> service, std::shared_ptr<ServiceTable> services)
{
    for (const auto& listener : m_options.listeners)
        if (auto checked = CheckListener(listener); !checked) return checked;
    auto audit = AuditLog::Open(m_options.audit);
    if (!audit) return Fail(audit.error());
    auto session = EmbeddedTransport(service, m_options.serverName).Connect({});
    if (!session) return Fail(session.error());
    m_core.service = std::move(service);
    m_core.services = std::move(services);
    m_core.reads = std::move(*session);
    m_core.audit = std::move(*audit);
    m_core.serverName = m_options.serverName;
    m_core.SetLimits(m_options.limits);
    auto keeper = Doorkeeper::Make();
    if (!keeper) return Fail(keeper.error());
    m_keeper = std::move(*keeper);
    m_keeper->SetRoom(m_options.limits.connections);
    for (const auto& listener : m_options.listeners)
        if (auto opened = Open(listener); !opened) return opened;
    return m_keeper->Start();
}

Result<FileHandle> AdminServer::Parts::Listen(const AdminListener& listener)
{
    if (listener.path.empty()) return ListenTcp(listener.address, listener.port);
    auto socket = ListenUnix(listener.path, listener.mode);
    if (socket) m_files.push_back({listener.path, FileNumber(listener.path)});
    return socket;
}

Done AdminServer::Parts::Open(const AdminListener& listener)
{
    if (listener.tls)
        if (auto restricted = AllowOnlyTls13(); !restricted) return restricted;
    auto socket = Listen(listener);
    if (!socket) return Fail(socket.error());
    ports.push_back(PortOf(*socket));
    m_materials.push_back(listener.tls ? std::make_shared<TlsMaterial>(*listener.tls) : nullptr);
    const auto door = m_endpoints.size();
    auto endpoint =
        AdminEndpoint::Start(m_core, {!listener.path.empty(), listener.role, m_materials.back(),
                                      [this, door] { return m_keeper->UsersAt(door); },
                                      [this, door](std::string_view peer) { m_keeper->Know(door, peer); }});
    if (!endpoint) return Fail(endpoint.error());
    m_endpoints.push_back(std::move(*endpoint));
    m_keeper->Add(std::move(*socket),
                  [to = m_endpoints.back().get()](int connection) { to->Admit(connection); });
    return {};
}

Result<bool> AdminServer::Parts::Reload(const AdminOptions& options)
{
    for (const auto& listener : options.listeners)
        if (auto checked = CheckListener(listener); !checked) return Fail(checked.error());
    if (auto reopened = m_core.audit->Reopen(options.audit); !reopened) return Fail(reopened.error());
    std::size_t same = 0;
    for (std::size_t i = 0; i < m_materials.size(); ++i) {
        const auto isSame = [&](const auto& other) { return IsSamePlace(other, m_options.listeners[i]); };
        const auto found = std::find_if(options.listeners.begin(), options.listeners.end(), isSame);
        if (found == options.listeners.end()) continue;
        ++same;
        if (m_materials[i]) m_materials[i]->Replace(*found->tls);
    }
    m_core.SetLimits(options.limits);
    m_keeper->SetRoom(options.limits.connections);
    return same == m_materials.size() && same == options.listeners.size();
}

void AdminServer::Parts::Stop(std::chrono::milliseconds grace)
{
    if (m_keeper) m_keeper->Close();
    for (const auto& file : m_files)
        if (FileNumber(file.path) == file.number) unlink(file.path.c_str());
    m_files.clear();
    const auto deadline = std::chrono::system_clock::now() + grace;
    for (const auto& endpoint : m_endpoints) endpoint->Shutdown(deadline);
    for (auto* queue : {&m_core.changes, &m_core.starts, &m_core.trees}) queue->Stop();
    m_endpoints.clear();
}

AdminServer::AdminServer(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}
AdminServer::~AdminServer() = default;

Result<std::unique_ptr<AdminServer>> AdminServer::Start(std::shared_ptr<Service> service,
                                                        std::shared_ptr<ServiceTable> services,
                                                        const AdminOptions& options)
{
    auto parts = std::make_unique<Parts>(options);
    if (auto started = parts->Start(std::move(service), std::move(services)); !started)
        return Fail(started.error());
    return std::unique_ptr<AdminServer>(new AdminServer(std::move(parts)));
}

Result<bool> AdminServer::Reload(const AdminOptions& options)
{
    return m_parts->Reload(options);
}

std::uint16_t AdminServer::Port(std::size_t listener) const
{
    return listener < m_parts->ports.size() ? m_parts->ports[listener] : std::uint16_t{0};
}

void AdminServer::Stop(std::chrono::milliseconds grace)
{
    m_parts->Stop(grace);
}

}  // namespace zentrel
