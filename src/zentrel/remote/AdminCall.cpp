#include "zentrel/remote/AdminCall.h"

#include "zentrel/remote/AdminEndpoint.h"

#include <google/protobuf/message_lite.h>
#include <grpcpp/support/proto_buffer_reader.h>

namespace zentrel {

namespace {

using Clock = std::chrono::steady_clock;

std::int64_t Milliseconds(Clock::time_point time)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

}  // namespace

grpc::ByteBuffer Packed(const google::protobuf::MessageLite& message)
{
    grpc::Slice slice(message.ByteSizeLong());
    auto* to = const_cast<std::uint8_t*>(slice.begin());  // nobody else has it yet
    message.SerializeWithCachedSizesToArray(to);
    return {&slice, 1};
}

void AdminCall::Await(AdminEndpoint& endpoint)
{
    const auto call = std::shared_ptr<AdminCall>(new AdminCall(endpoint), Leave);
    call->m_context.AsyncNotifyWhenDone(call->Start(call->m_over, false));
    endpoint.RequestCall(call->m_context, call->m_stream, call->Start(call->m_arrived, false));
}

void AdminCall::Dispatch(void* tag, bool ok)
{
    auto& event = *static_cast<Event*>(tag);
    const auto call = std::move(event.call);
    ((*call).*event.on)(ok);
}

AdminCall::~AdminCall()
{
    if (m_hasArrived) Core().ticker.Remove(this);
}

// The endpoint may go as soon as its last call has left, so nothing of the call may be left by then.
void AdminCall::Leave(AdminCall* call)
{
    auto& endpoint = call->m_endpoint;
    const bool isCounted = call->m_hasArrived;
    delete call;
    if (isCounted) endpoint.Left();
}

AdminCore& AdminCall::Core() const
{
    return m_endpoint.Core();
}

void* AdminCall::Start(Event& event, bool waitsForClient)
{
    if (waitsForClient) m_waitsSince = Milliseconds(Clock::now());
    event.call = shared_from_this();
    return &event;
}

void AdminCall::OnArrived(bool ok)
{
    if (!ok) {
        m_over.call.reset();  // the endpoint closes: nothing will be told of this one any more
        return;
    }
    m_hasArrived = true;
    m_endpoint.Arrived();
    Await(m_endpoint);
    Core().ticker.Add(shared_from_this());
    auto caller = m_endpoint.Identify(m_context);
    if (!caller) return Finish({grpc::StatusCode::UNAUTHENTICATED, "the certificate names no client"});
    m_caller = std::move(*caller);
    m_place = m_endpoint.TakeCallPlace(m_caller.who);
    if (m_place == nullptr) return Finish({grpc::StatusCode::RESOURCE_EXHAUSTED, "too many calls"});
    m_stream.Read(&m_request, Start(m_read));
}

void AdminCall::OnRead(bool ok)
{
    m_waitsSince = 0;
    if (!ok) return Finish({grpc::StatusCode::INVALID_ARGUMENT, "no request"});
    RunMethod(*this);
}

bool AdminCall::ReadRequest(google::protobuf::MessageLite& request) const
{
    auto bytes = m_request;  // shares its slices
    grpc::ProtoBufferReader reader(&bytes);
    return request.ParseFromZeroCopyStream(&reader);
}

void AdminCall::Reply(const google::protobuf::MessageLite& reply)
{
    m_stream.WriteAndFinish(Packed(reply), {}, grpc::Status::OK, Start(m_finished));
}

void AdminCall::Finish(const grpc::Status& status)
{
    m_stream.Finish(status, Start(m_finished));
}

void AdminCall::Begin(std::unique_ptr<StreamWork> work)
{
    const std::lock_guard guard(m_mutex);
    m_work = std::move(work);
}

void AdminCall::Write(const grpc::ByteBuffer& message)
{
    m_stream.Write(message, Start(m_written));
}

void AdminCall::OnWritten(bool ok)
{
    m_waitsSince = 0;
    m_work->OnWritten(ok);
}

void AdminCall::Tick(Clock::time_point now)
{
    const auto since = m_waitsSince.load();
    if (since != 0 && Milliseconds(now) - since > Core().Limits().stall.count()) Cancel();
    std::shared_ptr<StreamWork> work;
    {
        const std::lock_guard guard(m_mutex);
        work = m_work;
    }
    if (work) work->Tick(now);
}

}  // namespace zentrel
