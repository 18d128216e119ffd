#pragma once

#include "base/Result.h"
#include "zentrel/remote/AdminCore.h"

#include <administration.pb.h>

// What the server does for each call: one function each, with the name that the protocol has for it. They
// check the client's role; changes leave their line in the audit log. Any thread.
namespace zentrel::admin {

using google::protobuf::MessageLite;

// AccessDenied for a role that may not do this.
Done Allow(const Caller& caller, Role least);
// Who may delete the tree at a path: what lies below the root of one site is an operator's, everything else
// (a whole site, all sites) an admin's.
Role LeastRoleForTree(std::string_view path);

Result<v1::HelloReply> Hello(AdminCore& core, const Caller& caller, const v1::HelloRequest& request);
Result<v1::Nothing> OpenKey(AdminCore& core, const Caller& caller, const v1::KeyRequest& request);
Result<v1::CountReply> CountKeys(AdminCore& core, const Caller& caller, const v1::KeysRequest& request);
Result<v1::ListKeysReply> ListKeys(AdminCore& core, const Caller& caller, const v1::ListKeysRequest& request);
Result<v1::GetDataReply> GetData(AdminCore& core, const Caller& caller, const v1::GetDataRequest& request);
Result<v1::CacheDirReply> GetCacheDir(AdminCore& core, const Caller& caller, const v1::Nothing& request);

Result<v1::DeleteProgress> DeleteEntry(AdminCore& core, const Caller& caller, const v1::KeyRequest& request);
// A refusal is told, and written down, before the deletion has to wait for its turn.
Done AllowTree(AdminCore& core, const Caller& caller, const v1::KeyRequest& request);
// After AllowTree. soFar: told now and then how many entries were freed.
Result<std::uint64_t> DeleteTree(AdminCore& core, const Caller& caller, const v1::KeyRequest& request,
                                 const std::function<void(std::uint64_t)>& soFar);
// After AllowTree, instead of the deletion, when the client went away before its turn. Answers Cancelled.
Result<std::uint64_t> CancelTree(AdminCore& core, const Caller& caller, const v1::KeyRequest& request);
Result<v1::Nothing> ResetCounters(AdminCore& core, const Caller& caller, const v1::Nothing& request);
Result<v1::CountersReply> ReadCounters(AdminCore& core, const Caller& caller, const v1::Nothing& request);

Result<v1::ServicesReply> ListServices(AdminCore& core, const Caller& caller, const v1::Nothing& request);
Result<v1::Nothing> OpenService(AdminCore& core, const Caller& caller, const v1::ServiceRequest& request);
Result<v1::ServiceStatus> QueryService(AdminCore& core, const Caller& caller,
                                       const v1::ServiceRequest& request);
Result<v1::Nothing> StartService(AdminCore& core, const Caller& caller, const v1::ServiceRequest& request);
Result<v1::Nothing> StopService(AdminCore& core, const Caller& caller, const v1::ServiceRequest& request);

}  // namespace zentrel::admin
