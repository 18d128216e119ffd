#pragma once

#include "zentrel/Service.h"
#include "zentrel/ServiceTable.h"
#include "zentrel/Session.h"
#include "zentrel/remote/AdminOptions.h"
#include "zentrel/remote/AuditLog.h"
#include "zentrel/remote/Ticker.h"
#include "zentrel/remote/WorkQueue.h"

#include <memory>
#include <mutex>
#include <string>

namespace zentrel {

// What all calls of a server share.
struct AdminCore {
    std::shared_ptr<Service> service;
    std::shared_ptr<Session> reads;  // any thread
    std::shared_ptr<ServiceTable> services;
    std::unique_ptr<AuditLog> audit;
    std::string serverName;

    WorkQueue changes;  // what may have to wait for the service
    WorkQueue starts;   // of services, and stops
    WorkQueue trees;    // deletions of whole trees, one at a time
    Ticker ticker;

    AdminLimits Limits() const
    {
        const std::lock_guard guard(m_mutex);
        return m_limits;
    }
    void SetLimits(const AdminLimits& limits)
    {
        const std::lock_guard guard(m_mutex);
        m_limits = limits;
    }

private:
    mutable std::mutex m_mutex;
    AdminLimits m_limits;
};

}  // namespace zentrel
