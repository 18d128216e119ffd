#include "zentrel/remote/RemoteTransport.h"

#include "zentrel/remote/RemoteServices.h"
#include "zentrel/remote/RemoteSession.h"

namespace zentrel {

RemoteTransport::RemoteTransport(RemoteTarget target, WhileWaiting whileWaiting, Deadlines deadlines)
    : m_target(std::move(target)),
      m_whileWaiting(std::move(whileWaiting)),
      m_deadlines(deadlines)
{
}

RemoteTransport::~RemoteTransport() = default;

Result<std::shared_ptr<Session>> RemoteTransport::Connect(std::string_view server)
{
    std::string name(server);
    auto connection = Connection::Open(m_target, m_whileWaiting, m_deadlines);
    if (!connection) return Fail(connection.error());
    m_last = *connection;
    return std::shared_ptr<Session>(
        std::make_shared<RemoteSession>(std::move(*connection), std::move(name), m_target.IsLocal()));
}

Result<std::unique_ptr<ServiceManager>> RemoteTransport::OpenServiceManager(std::string_view,
                                                                            std::uint32_t access)
{
    auto connection = m_last.lock();
    if (connection == nullptr || connection->IsLost()) {
        auto opened = Connection::Open(m_target, m_whileWaiting, m_deadlines);
        if (!opened) return Fail(PlainServiceError(opened.error()));
        m_last = connection = std::move(*opened);
    }
    return RemoteServices::Open(std::move(connection), access);
}

}  // namespace zentrel
