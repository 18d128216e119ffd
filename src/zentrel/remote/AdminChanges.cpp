#include "zentrel/remote/AdminWork.h"

#include "zentrel/KeyPath.h"

#include <algorithm>

namespace zentrel::admin {

namespace {

constexpr std::uint32_t kRefused = 0x80070000 | Code::AccessDenied;

}  // namespace

Done Allow(const Caller& caller, Role least)
{
    if (caller.role >= least) return {};
    return Fail(kRefused, "ZentrelAdmin");
}

Role LeastRoleForTree(std::string_view path)
{
    const auto checked = CheckPath(path);
    if (!checked) return Role::Admin;
    auto rest = *checked;
    const bool isSites = TakeSegment(rest) == "LM" && TakeSegment(rest) == "W3SVC";
    const auto site = TakeSegment(rest);
    const bool isNumber =
        !site.empty() && std::all_of(site.begin(), site.end(), [](char c) { return c >= '0' && c <= '9'; });
    const bool isBelowRoot = TakeSegment(rest) == "Root" && !rest.empty();
    return isSites && isNumber && isBelowRoot ? Role::Operator : Role::Admin;
}

Result<v1::DeleteProgress> DeleteEntry(AdminCore& core, const Caller& caller, const v1::KeyRequest& request)
{
    AuditEntry entry{"DeleteEntry", request.path(), 0, Allow(caller, Role::Operator)};
    if (entry.outcome)
        entry.outcome = core.service->DeleteEntry(request.path(), [&entry] { entry.count = 1; });
    core.audit->Write(caller, entry);
    if (!entry.outcome) return Fail(entry.outcome.error());
    v1::DeleteProgress reply;
    reply.set_deleted(1);
    reply.set_is_done(true);
    return reply;
}

Done AllowTree(AdminCore& core, const Caller& caller, const v1::KeyRequest& request)
{
    auto allowed = Allow(caller, LeastRoleForTree(request.path()));
    if (!allowed) core.audit->Write(caller, {"DeleteTree", request.path(), {}, allowed});
    return allowed;
}

Result<std::uint64_t> DeleteTree(AdminCore& core, const Caller& caller, const v1::KeyRequest& request,
                                 const std::function<void(std::uint64_t)>& soFar)
{
    AuditEntry entry{"DeleteTree", request.path(), {}, {}};
    const auto note = [&](std::uint64_t count) {
        entry.count = count;  // these are freed even when the rest has to wait
        soFar(count);
        return true;
    };
    auto deleted = core.service->DeleteTree(request.path(), note);
    if (!deleted) entry.outcome = Fail(deleted.error());
    core.audit->Write(caller, entry);
    return deleted;
}

Result<std::uint64_t> CancelTree(AdminCore& core, const Caller& caller, const v1::KeyRequest& request)
{
    const Done outcome = Fail(Code::Cancelled, "ZentrelAdmin");
    core.audit->Write(caller, {"DeleteTree", request.path(), 0, outcome});
    return Fail(outcome.error());
}

Result<v1::Nothing> ResetCounters(AdminCore& core, const Caller& caller, const v1::Nothing&)
{
    auto outcome = Allow(caller, Role::Operator);
    if (outcome) outcome = core.service->ResetCounters();
    core.audit->Write(caller, {"ResetCounters", {}, {}, outcome});
    if (!outcome) return Fail(outcome.error());
    return v1::Nothing();
}

}  // namespace zentrel::admin
