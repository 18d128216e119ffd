#include "zentrel/remote/AdminWork.h"

#include <algorithm>

namespace zentrel::admin {

namespace {

constexpr std::uint32_t kVersion = 1;
constexpr std::uint32_t kMostNames = 1000;  // of one page

View ViewOf(bool isCache)
{
    return isCache ? View::Cache : View::Server;
}

}  // namespace

Result<v1::HelloReply> Hello(AdminCore& core, const Caller& caller, const v1::HelloRequest& request)
{
    if (request.version() < kVersion) return Fail(Code::InterfaceNotFound, "ZentrelAdmin");
    v1::HelloReply reply;
    reply.set_version(kVersion);
    reply.set_server_name(core.serverName);
    reply.set_role(static_cast<std::uint32_t>(caller.role));
    return reply;
}

Result<v1::Nothing> OpenKey(AdminCore& core, const Caller&, const v1::KeyRequest& request)
{
    if (const auto opened = core.reads->OpenKey(request.path()); !opened) return Fail(opened.error());
    return v1::Nothing();
}

Result<v1::CountReply> CountKeys(AdminCore& core, const Caller&, const v1::KeysRequest& request)
{
    const auto count = core.reads->CountKeys(request.path(), ViewOf(request.cache_view()));
    if (!count) return Fail(count.error());
    v1::CountReply reply;
    reply.set_count(*count);
    return reply;
}

Result<v1::ListKeysReply> ListKeys(AdminCore& core, const Caller&, const v1::ListKeysRequest& request)
{
    auto page = core.reads->ListKeys(request.path(), ViewOf(request.cache_view()), request.after(),
                                     std::clamp(request.most(), 1U, kMostNames));
    if (!page) return Fail(page.error());
    v1::ListKeysReply reply;
    reply.set_is_last(page->isLast);
    for (auto& name : page->names) reply.add_names(std::move(name));
    return reply;
}

Result<v1::GetDataReply> GetData(AdminCore& core, const Caller&, const v1::GetDataRequest& request)
{
    const auto record = core.reads->GetData(request.path(), request.property());
    if (!record) return Fail(record.error());
    v1::GetDataReply reply;
    if (!*record) return reply;
    const auto value = (*record)->Value();
    reply.set_exists(true);
    reply.set_type(static_cast<std::uint32_t>((*record)->Type()));
    reply.set_value(value.data(), value.size());
    return reply;
}

Result<v1::CacheDirReply> GetCacheDir(AdminCore& core, const Caller&, const v1::Nothing&)
{
    const auto folder = core.reads->GetCacheDir();
    if (!folder) return Fail(folder.error());
    v1::CacheDirReply reply;
    reply.set_path(*folder);
    return reply;
}

// Through a Unix socket it is this machine that reads.
Result<v1::CountersReply> ReadCounters(AdminCore& core, const Caller& caller, const v1::Nothing&)
{
    if (!caller.isLocal && !core.services->IsRunning(kRemoteReading))
        return Fail(Code::AccessDenied, "Counters");
    const auto totals = core.service->Counters();
    if (!totals) return Fail(totals.error());
    const auto packed = PackCounters(*totals);
    v1::CountersReply reply;
    reply.set_totals(packed.data(), packed.size());
    reply.set_elapsed(totals->elapsedTicks);
    return reply;
}

}  // namespace zentrel::admin
