#include "zentrel/remote/AdminWork.h"

namespace zentrel::admin {

namespace {

constexpr std::string_view kSource = "Services";

// Codes about services are plain.
Done AllowService(const Caller& caller, std::uint32_t access)
{
    constexpr auto kReads = ServiceAccess::QueryStatus | ServiceAccess::GenericRead;
    const auto least = (access & ~kReads) == 0 ? Role::Viewer : Role::Admin;
    if (caller.role >= least) return {};
    return Fail(Code::AccessDenied, kSource);
}

v1::ServiceStatus Status(const ServiceInfo& info)
{
    v1::ServiceStatus status;
    status.set_name(info.name);
    status.set_state(static_cast<std::uint32_t>(info.state));
    status.set_start(static_cast<std::uint32_t>(info.start));
    return status;
}

Result<v1::Nothing> Change(AdminCore& core, const Caller& caller, std::string_view what,
                           std::string_view name, Done (ServiceTable::*change)(std::string_view))
{
    auto outcome = AllowService(caller, ServiceAccess::GenericExecute);
    if (outcome) outcome = (*core.services.*change)(name);
    core.audit->Write(caller, {what, name, {}, outcome});
    if (!outcome) return Fail(outcome.error());
    return v1::Nothing();
}

}  // namespace

Result<v1::ServicesReply> ListServices(AdminCore& core, const Caller&, const v1::Nothing&)
{
    v1::ServicesReply reply;
    for (const auto& info : core.services->List()) *reply.add_services() = Status(info);
    return reply;
}

Result<v1::Nothing> OpenService(AdminCore& core, const Caller& caller, const v1::ServiceRequest& request)
{
    if (const auto info = core.services->Query(request.name()); !info) return Fail(info.error());
    const auto allowed = AllowService(caller, request.access());
    if (allowed) return v1::Nothing();
    core.audit->Write(caller, {"OpenService", request.name(), {}, allowed});
    return Fail(allowed.error());
}

Result<v1::ServiceStatus> QueryService(AdminCore& core, const Caller&, const v1::ServiceRequest& request)
{
    const auto info = core.services->Query(request.name());
    if (!info) return Fail(info.error());
    return Status(*info);
}

Result<v1::Nothing> StartService(AdminCore& core, const Caller& caller, const v1::ServiceRequest& request)
{
    return Change(core, caller, "StartService", request.name(), &ServiceTable::Start);
}

Result<v1::Nothing> StopService(AdminCore& core, const Caller& caller, const v1::ServiceRequest& request)
{
    return Change(core, caller, "StopService", request.name(), &ServiceTable::Stop);
}

}  // namespace zentrel::admin
