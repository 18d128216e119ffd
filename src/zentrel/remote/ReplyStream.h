#pragma once

#include "zentrel/remote/Connection.h"
#include "zentrel/remote/Limits.h"

#include <algorithm>

namespace zentrel {

// The messages that a server sends in answer to one question. One message is read ahead of the caller; the
// rest waits in the connection's window. Dropping the stream cancels it.
template <class Message, class Request = v1::KeyRequest>
class ReplyStream {
public:
    using Reader = grpc::ClientAsyncReader<Message>;
    using Method = std::unique_ptr<Reader> (Connection::Stub::*)(grpc::ClientContext*, const Request&,
                                                                 grpc::CompletionQueue*);
    using Outcome = Waiting::Outcome;

    ReplyStream(std::shared_ptr<Connection> connection, Method method, const Request& request,
                Connection::Time deadline = Connection::Time::max())
        : m_connection(std::move(connection))
    {
        if (deadline != Connection::Time::max()) Connection::SetDeadline(m_context, deadline);
        m_reader = (m_connection->Calls().*method)(&m_context, request, &m_queue.Get());
        m_reader->StartCall(nullptr);
    }
    ~ReplyStream() { m_context.TryCancel(); }
    ReplyStream(const ReplyStream&) = delete;
    ReplyStream& operator=(const ReplyStream&) = delete;

    // The next message; null at the end. Fails with Timeout when nothing came until then, and with
    // InvalidHandle when called out of a hook that runs in it.
    Result<std::unique_ptr<Message>> Next(Waiting& waiting, Waiting::Clock::time_point until)
    {
        if (m_isBusy) return Fail(Code::InvalidHandle, "ZentrelAdmin");
        m_isBusy = true;
        auto message = Take(waiting, until);
        m_isBusy = false;
        return message;
    }

private:
    Result<std::unique_ptr<Message>> Take(Waiting& waiting, Waiting::Clock::time_point until)
    {
        if (!m_hasBegun) {
            const auto begun = waiting.For(m_queue.Get(), until);
            if (begun == Outcome::TimeOut) return GiveUp();
            if (begun == Outcome::NotOk) return Finish(waiting);
            m_hasBegun = true;
            Read();
        }
        if (m_coming == nullptr) return std::unique_ptr<Message>();
        const auto outcome = waiting.For(m_queue.Get(), until);
        if (outcome == Outcome::TimeOut) return GiveUp();
        auto message = std::move(m_coming);
        if (outcome == Outcome::NotOk) return Finish(waiting);
        Read();
        return message;
    }

    void Read()
    {
        m_coming = std::make_unique<Message>();
        m_reader->Read(m_coming.get(), nullptr);
    }

    Result<std::unique_ptr<Message>> GiveUp()
    {
        m_context.TryCancel();
        m_connection->SetLost();
        return Fail(Code::Timeout, "ZentrelAdmin");
    }

    Result<std::unique_ptr<Message>> Finish(Waiting& waiting)
    {
        m_coming.reset();
        m_hasBegun = true;
        grpc::Status status;
        m_reader->Finish(&status, nullptr);
        waiting.For(m_queue.Get());
        if (!status.ok()) return Fail(m_connection->Failed(status, "ZentrelAdmin"));
        return std::unique_ptr<Message>();
    }

    std::shared_ptr<Connection> m_connection;
    grpc::ClientContext m_context;
    std::unique_ptr<Message> m_coming;
    std::unique_ptr<Reader> m_reader;
    CallQueue m_queue;  // last: drained before what it still fills is gone
    bool m_hasBegun = false;
    bool m_isBusy = false;
};

// How long a stream that brings bytes is waited for: each message within the stall deadline, all of them
// within the slow deadline and a second for each KiB that they bring.
class Patience {
public:
    explicit Patience(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {}

    template <class Stream>
    auto Next(Stream& stream)
    {
        using std::chrono::milliseconds;
        const auto& waits = m_connection->Waits();
        const auto start = Waiting::Clock::now();
        const auto granted =
            waits.slow + milliseconds(static_cast<std::int64_t>(1000 * m_bytes / Limit::StreamRate));
        const auto left = std::min<Waiting::Clock::duration>(waits.stall, granted - m_waited);
        Waiting waiting(m_connection->Hook());
        auto message = stream.Next(waiting, start + left);
        m_waited += Waiting::Clock::now() - start;
        return message;
    }
    void Brought(std::size_t bytes) { m_bytes += static_cast<double>(bytes); }

private:
    std::shared_ptr<Connection> m_connection;
    double m_bytes = 0;  // so far
    Waiting::Clock::duration m_waited{};
};

}  // namespace zentrel
