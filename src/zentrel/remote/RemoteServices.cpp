#include "zentrel/remote/RemoteServices.h"

#include "zentrel/remote/Limits.h"
#include "zentrel/remote/Replies.h"

namespace zentrel {

namespace {

using Stub = Connection::Stub;
constexpr const char* kSource = "Services";

constexpr std::uint32_t kQuery = ServiceAccess::QueryStatus | ServiceAccess::GenericRead;
constexpr std::uint32_t kStart = ServiceAccess::Start | ServiceAccess::GenericExecute;
constexpr std::uint32_t kStop = ServiceAccess::Stop | ServiceAccess::GenericExecute;

class RemoteService : public HostService {
public:
    RemoteService(std::shared_ptr<Connection> connection, v1::ServiceRequest request)
        : m_connection(std::move(connection)),
          m_request(std::move(request))
    {
    }

    Result<ServiceState> QueryStatus() override
    {
        const auto reply = Ask(&Stub::PrepareAsyncQueryService, kQuery);
        if (!reply) return Fail(reply.error());
        const auto service = ReadService(*reply);
        if (!service) return Fail(service.error());
        return service->state;
    }
    Done Start() override { return Change(&Stub::PrepareAsyncStartService, kStart); }
    Done Stop() override { return Change(&Stub::PrepareAsyncStopService, kStop); }

private:
    template <class Reply>
    Result<Reply> Ask(Connection::Method<v1::ServiceRequest, Reply> method, std::uint32_t rights)
    {
        if ((m_request.access() & rights) == 0) return Fail(Code::AccessDenied, kSource);
        const auto connection = m_connection;
        const auto request = m_request;
        auto reply = connection->Ask(method, request, connection->Waits().change, kSource);
        if (!reply) return Fail(PlainServiceError(reply.error()));
        return reply;
    }
    Done Change(Connection::Method<v1::ServiceRequest, v1::Nothing> method, std::uint32_t rights)
    {
        if (const auto reply = Ask(method, rights); !reply) return Fail(reply.error());
        return {};
    }

    std::shared_ptr<Connection> m_connection;
    v1::ServiceRequest m_request;
};

}  // namespace

SystemError PlainServiceError(SystemError error)
{
    const bool isGone =
        error.code == Code::Timeout || error.Is(Code::UnknownInterface) || error.Is(Code::InterfaceNotFound);
    error.code = isGone ? Code::ServerUnavailable & 0xFFFFU : error.Plain();
    error.source = kSource;
    return error;
}

Result<std::unique_ptr<ServiceManager>> RemoteServices::Open(std::shared_ptr<Connection> connection,
                                                             std::uint32_t access)
{
    const bool isAdmin = connection->ClientRole() == Role::Admin;
    if ((access & (kStart | kStop)) != 0 && !isAdmin) return Fail(Code::AccessDenied, kSource);
    return std::unique_ptr<ServiceManager>(new RemoteServices(std::move(connection)));
}

Result<std::unique_ptr<HostService>> RemoteServices::OpenService(std::string_view name, std::uint32_t access)
{
    if (name.empty() || name.size() > Limit::ServiceName) return Fail(Code::InvalidName, kSource);
    v1::ServiceRequest request;
    request.set_name(name.data(), name.size());
    request.set_access(access);
    const auto connection = m_connection;
    const auto reply =
        connection->Ask(&Stub::PrepareAsyncOpenService, request, connection->Waits().read, kSource);
    if (!reply) return Fail(PlainServiceError(reply.error()));
    return std::unique_ptr<HostService>(std::make_unique<RemoteService>(connection, std::move(request)));
}

Result<std::vector<ServiceInfo>> RemoteServices::ListServices()
{
    const auto connection = m_connection;
    const auto reply =
        connection->Ask(&Stub::PrepareAsyncListServices, v1::Nothing(), connection->Waits().read, kSource);
    if (!reply) return Fail(PlainServiceError(reply.error()));
    return ReadServices(*reply);
}

}  // namespace zentrel
