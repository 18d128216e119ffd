#include "zentrel/remote/AdminEndpoint.h"
#include "zentrel/remote/AdminWork.h"
#include "zentrel/remote/CacheFileSender.h"
#include "zentrel/remote/Failures.h"
#include "zentrel/remote/SubtreeSender.h"
#include "zentrel/remote/TreeDeleter.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::string_view kService = "/zentrel.v1.Administration/";

template <class Request, class Reply>
using Work = Result<Reply> (*)(AdminCore&, const Caller&, const Request&);

// A call with one request and one reply.
template <auto Function>
struct Unary;

template <class Request, class Reply, Work<Request, Reply> Function>
struct Unary<Function> {
    static void Run(AdminCall& call)
    {
        Request request;
        if (!call.ReadRequest(request))
            return call.Finish({grpc::StatusCode::INVALID_ARGUMENT, "bad request"});
        const auto reply = Function(call.Core(), call.Who(), request);
        if (!reply) return call.Finish(ToStatus(reply.error()));
        call.Reply(*reply);
    }
};

// The same on a worker's thread, unless the client has gone when its turn comes.
template <auto Function, WorkQueue AdminCore::*Queue>
void Queued(AdminCall& call)
{
    (call.Core().*Queue).Add([keep = call.shared_from_this()] {
        if (keep->IsOver()) return keep->Finish(grpc::Status::CANCELLED);
        Unary<Function>::Run(*keep);
    });
}

void RunHello(AdminCall& call)
{
    call.Endpoint().Greet(call.Who());
    Unary<&admin::Hello>::Run(call);
}

struct Method {
    std::string_view name;
    void (*run)(AdminCall& call);
};

constexpr Method kMethods[] = {
    {"Hello", RunHello},
    {"OpenKey", Unary<&admin::OpenKey>::Run},
    {"CountKeys", Unary<&admin::CountKeys>::Run},
    {"ListKeys", Unary<&admin::ListKeys>::Run},
    {"GetData", Unary<&admin::GetData>::Run},
    {"OpenSubtree", SubtreeSender::Run},
    {"DeleteEntry", Queued<&admin::DeleteEntry, &AdminCore::changes>},
    {"DeleteTree", TreeDeleter::Run},
    {"GetCacheDir", Unary<&admin::GetCacheDir>::Run},
    {"ReadCacheFile", CacheFileSender::Run},
    {"ResetCounters", Queued<&admin::ResetCounters, &AdminCore::changes>},
    {"ReadCounters", Queued<&admin::ReadCounters, &AdminCore::changes>},
    {"ListServices", Unary<&admin::ListServices>::Run},
    {"OpenService", Unary<&admin::OpenService>::Run},
    {"QueryService", Unary<&admin::QueryService>::Run},
    {"StartService", Queued<&admin::StartService, &AdminCore::starts>},
    {"StopService", Queued<&admin::StopService, &AdminCore::starts>},
};

}  // namespace

void RunMethod(AdminCall& call)
{
    std::string_view name = call.Method();
    const bool isOurs = name.starts_with(kService);
    if (isOurs) name.remove_prefix(kService.size());
    const auto* method = std::find_if(std::begin(kMethods), std::end(kMethods),
                                      [&](const Method& one) { return isOurs && one.name == name; });
    if (method == std::end(kMethods)) return call.Finish({grpc::StatusCode::UNIMPLEMENTED, "no such call"});
    method->run(call);
}

}  // namespace zentrel
