#pragma once

#include "zentrel/HostServices.h"
#include "zentrel/remote/Connection.h"

namespace zentrel {

// The services of the host at the other end of a connection. All codes are plain; a host that is gone is
// 1722.
class RemoteServices : public ServiceManager {
public:
    // 5 when this client's role does not include the rights.
    static Result<std::unique_ptr<ServiceManager>> Open(std::shared_ptr<Connection> connection,
                                                        std::uint32_t access);

    Result<std::unique_ptr<HostService>> OpenService(std::string_view name, std::uint32_t access) override;
    Result<std::vector<ServiceInfo>> ListServices() override;

private:
    explicit RemoteServices(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

    std::shared_ptr<Connection> m_connection;
};

// The plain code that a service call fails with for an error of the connection.
SystemError PlainServiceError(SystemError error);

}  // namespace zentrel
