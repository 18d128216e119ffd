#pragma once

#include "zentrel/remote/AdminCore.h"
#include "zentrel/remote/Places.h"

#include <grpcpp/generic/async_generic_service.h>

#include <atomic>

namespace google::protobuf {
class MessageLite;
}

namespace zentrel {

class AdminEndpoint;

// The rest of a call that answers with more than one message. Events of one call may come from several
// threads, but never two OnWritten at once.
class StreamWork {
public:
    virtual ~StreamWork() = default;
    virtual void OnWritten(bool ok) = 0;  // the message was taken; false: there is no client any more
    virtual void Tick(std::chrono::steady_clock::time_point) {}
};

// One call on its way through gRPC: arrives, is read, answered and finished. Every step is an event of the
// completion queue, so that a call that waits for its client holds no thread. A client that keeps it waiting
// for too long is cut off.
class AdminCall : public Ticking, public std::enable_shared_from_this<AdminCall> {
public:
    static void Await(AdminEndpoint& endpoint);  // the endpoint's next call
    static void Dispatch(void* tag, bool ok);    // an event of the completion queue

    ~AdminCall() override;

    AdminCore& Core() const;
    AdminEndpoint& Endpoint() const { return m_endpoint; }
    const Caller& Who() const { return m_caller; }
    const std::string& Method() const { return m_context.method(); }
    bool ReadRequest(google::protobuf::MessageLite& request) const;
    bool IsOver() const { return m_isOver; }  // the client has gone

    // Each call ends with one of these.
    void Reply(const google::protobuf::MessageLite& reply);
    void Finish(const grpc::Status& status);

    // For calls with several messages: one Write at a time, the work hears when it was taken.
    void Begin(std::unique_ptr<StreamWork> work);
    void Write(const grpc::ByteBuffer& message);
    void Cancel() { m_context.TryCancel(); }

    void Tick(std::chrono::steady_clock::time_point now) override;

private:
    struct Event {
        void (AdminCall::*on)(bool ok);
        std::shared_ptr<AdminCall> call;  // while it is under way
    };

    explicit AdminCall(AdminEndpoint& endpoint) : m_endpoint(endpoint) {}
    static void Leave(AdminCall* call);
    void* Start(Event& event, bool waitsForClient = true);
    void OnArrived(bool ok);
    void OnRead(bool ok);
    void OnWritten(bool ok);
    void OnFinished(bool) {}
    void OnOver(bool) { m_isOver = true; }

    AdminEndpoint& m_endpoint;
    grpc::GenericServerContext m_context;
    grpc::GenericServerAsyncReaderWriter m_stream{&m_context};
    grpc::ByteBuffer m_request;
    Caller m_caller;
    Places::Place m_place;
    bool m_hasArrived = false;
    std::atomic<bool> m_isOver{false};
    std::atomic<std::int64_t> m_waitsSince{0};  // for the client; milliseconds of the steady clock, 0: not
    std::mutex m_mutex;                         // guards who owns the work
    std::shared_ptr<StreamWork> m_work;

    Event m_arrived{&AdminCall::OnArrived, {}};
    Event m_read{&AdminCall::OnRead, {}};
    Event m_written{&AdminCall::OnWritten, {}};
    Event m_finished{&AdminCall::OnFinished, {}};
    Event m_over{&AdminCall::OnOver, {}};
};

// Answers the call, here or by handing it to a worker.
void RunMethod(AdminCall& call);

grpc::ByteBuffer Packed(const google::protobuf::MessageLite& message);

}  // namespace zentrel
