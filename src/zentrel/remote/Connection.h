#pragma once

#include "zentrel/remote/Failures.h"
#include "zentrel/remote/Waiting.h"

#include <administration.grpc.pb.h>

#include <atomic>

namespace zentrel {

// One connection to a server's administration. Shared by sessions, streams and services; each call holds it
// while it runs, so a hook may drop any of those meanwhile. Internal: no public header includes this.
class Connection {
public:
    using Stub = v1::Administration::Stub;
    using Time = Deadlines::Time;

    // Connects and agrees on the protocol, all within the connect deadline. A server that does not answer
    // in time is ServerUnavailable.
    static Result<std::shared_ptr<Connection>> Open(const RemoteTarget& target, const WhileWaiting& hook,
                                                    const Deadlines& deadlines);

    const Deadlines& Waits() const { return m_deadlines; }
    const WhileWaiting& Hook() const { return m_hook; }
    Stub& Calls() { return *m_stub; }
    Role ClientRole() const { return m_role; }
    bool IsLost() const { return m_isLost; }
    void SetLost() { m_isLost = true; }

    // The failure that a status stands for; remembers that the connection is gone when it says so.
    SystemError Failed(const grpc::Status& status, std::string_view source);

    template <class Request, class Reply>
    using Method = std::unique_ptr<grpc::ClientAsyncResponseReader<Reply>> (Stub::*)(grpc::ClientContext*,
                                                                                     const Request&,
                                                                                     grpc::CompletionQueue*);
    // One question, one answer. Call through a shared pointer that stays.
    template <class Request, class Reply>
    Result<Reply> Ask(Method<Request, Reply> method, const Request& request, Time deadline,
                      std::string_view source = "ZentrelAdmin");

    static void SetDeadline(grpc::ClientContext& context, Time deadline);

private:
    Connection(std::unique_ptr<Stub> stub, WhileWaiting hook, const Deadlines& deadlines);
    Done ShakeHands();

    std::unique_ptr<Stub> m_stub;
    WhileWaiting m_hook;
    Deadlines m_deadlines;
    Role m_role = Role::Viewer;
    std::atomic<bool> m_isLost = false;
};

template <class Request, class Reply>
Result<Reply> Connection::Ask(Method<Request, Reply> method, const Request& request, Time deadline,
                              std::string_view source)
{
    if (IsLost()) return Fail(Code::ServerUnavailable, source);
    CallQueue queue;
    grpc::ClientContext context;
    SetDeadline(context, deadline);
    Reply reply;
    grpc::Status status;
    const auto call = (*m_stub.*method)(&context, request, &queue.Get());
    call->StartCall();
    call->Finish(&reply, &status, nullptr);
    const auto outcome = Waiting(m_hook).For(queue.Get());  // gRPC keeps the deadline
    if (!status.ok()) return Fail(Failed(status, source));
    if (outcome != Waiting::Outcome::Ok) return Fail(Code::InvalidData, source);  // no such message
    return reply;
}

}  // namespace zentrel
