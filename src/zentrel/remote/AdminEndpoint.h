#pragma once

#include "zentrel/remote/AdminCore.h"
#include "zentrel/remote/Certificates.h"
#include "zentrel/remote/Places.h"
#include "zentrel/remote/TlsCredentials.h"

#include <grpcpp/generic/async_generic_service.h>
#include <grpcpp/server.h>
#include <grpcpp/server_builder.h>

#include <condition_variable>
#include <optional>
#include <thread>
#include <unordered_map>
#include <vector>

namespace zentrel {

// Speaks the protocol with the clients of one listener. Several threads serve them; what they do takes
// little time, and no client holds one while it is waited for.
class AdminEndpoint {
public:
    struct Kind {
        bool isLocal = false;
        Role role = Role::Viewer;                     // of every client, unless the certificate tells it
        std::shared_ptr<TlsMaterial> material;        // none: no TLS
        std::function<std::string()> users;           // whose connections there are: a local client's name
        std::function<void(std::string_view)> greet;  // told who has said hello: "10.0.0.5:50112"
    };

    static Result<std::unique_ptr<AdminEndpoint>> Start(AdminCore& core, Kind kind);
    ~AdminEndpoint();  // after Shutdown

    void Admit(int connection);  // owns the descriptor

    // No new calls; those under way are cancelled at the deadline. Workers may still hold some.
    void Shutdown(std::chrono::system_clock::time_point deadline);

    // ---- for calls
    AdminCore& Core() const { return m_core; }
    void RequestCall(grpc::GenericServerContext& context, grpc::GenericServerAsyncReaderWriter& stream,
                     void* tag);
    void Arrived();
    void Left();
    std::optional<Caller> Identify(const grpc::ServerContext& context);
    void Greet(const Caller& caller) const;

    // A place among the calls, and the walks and files sent, that are under way at once; empty: none is free.
    Places::Place TakeCallPlace(const std::string& who);
    Places::Place TakeStreamPlace(const std::string& who);

private:
    AdminEndpoint(AdminCore& core, Kind kind) : m_core(core), m_kind(std::move(kind)) {}
    bool Build();
    void Serve();
    std::optional<ClientIdentity> Remembered(const std::string& certificate);

    AdminCore& m_core;
    const Kind m_kind;
    grpc::AsyncGenericService m_service;
    std::unique_ptr<grpc::ServerCompletionQueue> m_queue;
    std::unique_ptr<grpc::experimental::ExternalConnectionAcceptor> m_acceptor;
    std::unique_ptr<grpc::Server> m_server;
    std::vector<std::thread> m_threads;

    Places m_callPlaces;
    Places m_streamPlaces;

    std::mutex m_mutex;  // guards what follows
    std::condition_variable m_allLeft;
    std::size_t m_calls = 0;
    std::unordered_map<std::string, ClientIdentity> m_identities;  // by certificate
};

}  // namespace zentrel
