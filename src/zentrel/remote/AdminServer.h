#pragma once

#include "base/Result.h"
#include "zentrel/Service.h"
#include "zentrel/ServiceTable.h"
#include "zentrel/remote/AdminOptions.h"

#include <chrono>
#include <memory>

namespace zentrel {

// Offers the administration of one service to clients on this machine and on others, until it is destroyed.
class AdminServer {
public:
    // Listens when it returns. Fails as CheckListener, ListenUnix and ListenTcp do, and with AccessDenied or
    // kin when the audit log cannot be opened.
    static Result<std::unique_ptr<AdminServer>> Start(std::shared_ptr<Service> service,
                                                      std::shared_ptr<ServiceTable> services,
                                                      const AdminOptions& options);
    ~AdminServer();  // Stop
    AdminServer(const AdminServer&) = delete;
    AdminServer& operator=(const AdminServer&) = delete;

    // Takes over limits, audit log, and certificates for connections to come. False: the listeners are other
    // ones than at the start, which a restart is needed for; the rest is in force. All stays as it was when
    // it fails.
    Result<bool> Reload(const AdminOptions& options);

    // The port that a listener got; they count from 0 in the order of the options.
    std::uint16_t Port(std::size_t listener) const;

    // Nobody gets in from now on. Calls under way get `grace` to end, then they are cancelled; a deletion
    // that has begun is finished.
    void Stop(std::chrono::milliseconds grace);

private:
    class Parts;

    explicit AdminServer(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> m_parts;
};

}  // namespace zentrel
