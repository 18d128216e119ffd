#pragma once

#include "platform/TempFolder.h"
#include "zentrel/remote/RemoteTransport.h"

#include <administration.pb.h>

#include <grpcpp/generic/async_generic_service.h>
#include <grpcpp/server.h>
#include <grpcpp/server_builder.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

// What a server sends in answer to one call: messages byte by byte as a test wants them, then an end.
struct Answer {
    enum class End { Status, Stall };  // Stall: never another word

    std::function<std::optional<std::string>(int)> message = [](int) { return std::nullopt; };  // by index
    grpc::Status status = {};
    End end = End::Status;
    bool isCompressed = false;

    static Answer One(std::string bytes)
    {
        return {[bytes = std::move(bytes)](int index) {
            return index == 0 ? std::optional(bytes) : std::nullopt;
        }};
    }
    static Answer Endless(std::function<std::string(int)> make)
    {
        return {[make = std::move(make)](int index) { return std::optional(make(index)); }};
    }
    static Answer Never() { return {.end = End::Stall}; }
    static Answer Failed(grpc::Status status) { return {.status = std::move(status)}; }
};

// A server of the administration that does what a test says. It lives on a Unix socket.
class LyingServer {
public:
    using Script = std::function<std::optional<Answer>(const std::string& call, const std::string& request)>;

    // script: called on gRPC's threads for each call by its name ("GetData"); empty means an honest answer.
    explicit LyingServer(Script script = {})
        : m_folder(std::move(*TempFolder::Make("quillet-liar"))),
          m_service(std::move(script))
    {
        grpc::ServerBuilder builder;
        builder.AddListeningPort("unix:" + Socket().string(), grpc::InsecureServerCredentials());
        builder.RegisterCallbackGenericService(&m_service);
        m_server = builder.BuildAndStart();
    }
    ~LyingServer() { Stop(); }

    std::filesystem::path Folder() const { return m_folder.Path(); }
    std::filesystem::path Socket() const { return m_folder.Path() / "liar.sock"; }
    zentrel::RemoteTarget Target() const
    {
        zentrel::RemoteTarget target;
        target.socket = Socket();
        return target;
    }
    int Calls() const { return m_service.calls; }
    void Stop() { m_server->Shutdown(std::chrono::system_clock::now()); }

    // Lies in one call, always the same.
    static Script Only(std::string call, Answer answer)
    {
        return [call = std::move(call), answer = std::move(answer)](const std::string& name, const auto&) {
            return name == call ? std::optional(answer) : std::nullopt;
        };
    }

    static Answer Honest(const std::string& call)
    {
        if (call == "Hello")
            return Answer::One(Bytes<zentrel::v1::HelloReply>([](auto& reply) {
                reply.set_version(1);
                reply.set_role(static_cast<std::uint32_t>(zentrel::Role::Admin));
            }));
        if (call == "DeleteTree")
            return Answer::One(
                Bytes<zentrel::v1::DeleteProgress>([](auto& progress) { progress.set_is_done(true); }));
        if (call == "ListKeys")
            return Answer::One(
                Bytes<zentrel::v1::ListKeysReply>([](auto& reply) { reply.set_is_last(true); }));
        if (call == "QueryService")
            return Answer::One(Bytes<zentrel::v1::ServiceStatus>([](auto& status) {
                status.set_state(static_cast<std::uint32_t>(zentrel::ServiceState::Running));
                status.set_start(static_cast<std::uint32_t>(zentrel::ServiceStart::Manual));
            }));
        if (call == "OpenSubtree") return Rows([](zentrel::RowBatch& batch) { batch.Add({0, 0, "1", {}}); });
        return Answer::One({});
    }

    template <class Message, class Fill>
    static std::string Bytes(Fill&& fill)
    {
        Message message;
        fill(message);
        return message.SerializeAsString();
    }

    static std::string Batch(const zentrel::RowBatch& rows)
    {
        return Bytes<zentrel::v1::SubtreeBatch>([&rows](auto& batch) { batch.set_rows(rows.Packed()); });
    }

    template <class Fill>
    static Answer Rows(Fill&& fill)
    {
        zentrel::RowBatch rows;
        fill(rows);
        return Answer::One(Batch(rows));
    }

private:
    class Call : public grpc::ServerGenericBidiReactor {
    public:
        Call(grpc::GenericCallbackServerContext& context, const Script& script)
            : m_context(context),
              m_script(script)
        {
            StartRead(&m_buffer);
        }

        void OnReadDone(bool isOk) override
        {
            if (!isOk) return End(grpc::Status::CANCELLED);
            const auto call = m_context.method().substr(m_context.method().rfind('/') + 1);
            auto answer = m_script ? m_script(call, Take(m_buffer)) : std::nullopt;
            m_answer = answer ? std::move(*answer) : Honest(call);
            if (m_answer.isCompressed) m_context.set_compression_algorithm(GRPC_COMPRESS_GZIP);
            Write();
        }
        void OnWriteDone(bool isOk) override { isOk ? Write() : End(grpc::Status::CANCELLED); }
        void OnCancel() override { End(grpc::Status::CANCELLED); }
        void OnDone() override { delete this; }

    private:
        static std::string Take(const grpc::ByteBuffer& buffer)
        {
            std::vector<grpc::Slice> slices;
            std::string bytes;
            if (buffer.Valid() && buffer.Dump(&slices).ok())
                for (const auto& slice : slices)
                    bytes.append(reinterpret_cast<const char*>(slice.begin()), slice.size());
            return bytes;
        }
        void Write()
        {
            const auto message = m_answer.message(m_index++);
            if (!message && m_answer.end == Answer::End::Stall) return;
            if (!message) return End(m_answer.status);
            const grpc::Slice slice(*message);
            m_buffer = grpc::ByteBuffer(&slice, 1);
            StartWrite(&m_buffer);
        }
        void End(const grpc::Status& status)
        {
            if (!m_isOver.exchange(true)) Finish(status);
        }

        grpc::GenericCallbackServerContext& m_context;
        const Script& m_script;
        grpc::ByteBuffer m_buffer;
        Answer m_answer;
        int m_index = 0;
        std::atomic<bool> m_isOver = false;
    };

    class Service : public grpc::CallbackGenericService {
    public:
        explicit Service(Script script) : m_script(std::move(script)) {}
        grpc::ServerGenericBidiReactor* CreateReactor(grpc::GenericCallbackServerContext* context) override
        {
            ++calls;
            return new Call(*context, m_script);
        }
        std::atomic<int> calls = 0;

    private:
        Script m_script;
    };

    TempFolder m_folder;
    Service m_service;
    std::unique_ptr<grpc::Server> m_server;
};
